#include "item/Installation.h"

#include <algorithm>

#include "item/Call.h"
#include "item/ItemValidators.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

constexpr std::chrono::seconds DURATION{10};
constexpr std::int64_t ALMOST_DONE = 99;

const char* const RUNNING = "running";
const char* const FAILED = "failed";
enum ProgressField { STATE, PERCENT, VERSION };
constexpr Field PROGRESS[] = {word("idle|running|done|failed"), number(0, 100),
                              text(0, MAX_VERSION_LENGTH)};

}  // namespace

void Installation::noteInterruption() {
    const auto progress = m_state.readItem(ITEM_PROGRESS);
    if (progress && isProgress(*progress)) {  // reading a damaged one fails
        const Record fields = *parseTexts(*progress);
        if (fields[STATE] == RUNNING) {
            m_state.writeItem(ITEM_PROGRESS, formatRecord({FAILED, "0", fields[VERSION]}),
                              {EventCode::INSTALLATION_FAILED, "", fields[VERSION]});
        }
    }
}

void Installation::start(const std::string& version, const std::string& user) {
    m_state.writeItems({{ITEM_PROGRESS, formatRecord({RUNNING, "0", version})}}, {});
    m_version = version;
    m_user = user;
    m_begin = Clock::now();
    m_end = m_begin + DURATION;
}

bool Installation::isProgress(const std::string& content) {
    return parseRecord(content, PROGRESS).has_value();
}

std::string Installation::readProgress() {
    Record fields = *parseTexts(readValid(m_state, ITEM_PROGRESS, isProgress));
    if (isRunning()) {
        const std::int64_t percent = (Clock::now() - m_begin) * 100 / DURATION;
        fields[PERCENT] = std::to_string(std::min(percent, ALMOST_DONE));
    } else if (fields[STATE] == RUNNING) {  // was interrupted, which could not be stored
        fields[STATE] = FAILED;
    }
    return formatRecord(fields);
}

Installation::Clock::time_point Installation::getDeadline() const {
    return isRunning() ? m_end : Clock::time_point::max();
}

void Installation::finish() {
    if (Clock::now() < getDeadline()) {
        return;
    }
    m_end += DURATION;  // until when it is tried again, should the state fail
    Record product = *parseTexts(readValid(m_state, ITEM_PRODUCT, isProduct));
    product[PRODUCT_VERSION_FIELD] = m_version;
    m_state.writeItems({{ITEM_PRODUCT, formatRecord(product)},
                        {ITEM_PROGRESS, formatRecord({"done", "100", m_version})}},
                       {{EventCode::FIRMWARE_INSTALLED, m_user, m_version}});
    m_version.clear();
}

}  // namespace ORVLib::Board
