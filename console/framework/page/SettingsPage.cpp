#include "framework/page/SettingsPage.h"

#include <cstdint>
#include <iostream>
#include <utility>

#include "framework/backend/RecordReader.h"
#include "framework/component/PageChrome.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char REVISION_FIELD[] = "seen";
constexpr char CONSENT_FIELD[] = "consent";

/// What the user would lose, and the box that consents to it.
class Consent : public HTMLComponent {
public:
    explicit Consent(std::string lockOut) : m_lockOut(std::move(lockOut)) {}

    void printHTML() const override {
        std::cout << "<div class=\"consent\">\n<p role=\"alert\">";
        makeSentence(m_lockOut, TextString::ERROR_COLOUR)->printHTML();
        std::cout << "</p>\n<p>";
        makeBox().print();
        std::cout << "</p>\n</div>";
    }
    bool isError() const override { return false; }

    static bool isGiven(const Fields& fields) {
        FlagInput box = makeBox();
        box.submit(fields);
        return !box.isEmpty();
    }

private:
    static FlagInput makeBox() { return {CONSENT_FIELD, text(TEXT_CONSENT), ""}; }

    std::string m_lockOut;
};

/// A digest of texts: their FNV-1a sum of 64 bits.
std::string sumOf(const Record& texts) {
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const std::string& text : texts) {
        for (const char* byte = text.c_str(); byte != text.c_str() + text.size() + 1; ++byte) {
            sum = (sum ^ static_cast<unsigned char>(*byte)) * 0x100000001b3;
        }
    }
    return std::to_string(sum);
}

}  // namespace

SettingsPage::SettingsPage(const PageContext& context, Function function, Text purpose)
    : FormPage(context, function, purpose, "skeleton_settings.txt"),
      m_revision(getField(REVISION_FIELD)) {}

void SettingsPage::makeDispPage() {
    const std::string seen = m_revision;
    const bool isToConfirm = getStep() == Step::CONFIRM && isConfirmed();
    const bool isToEdit = getStep() == Step::EDIT_AGAIN;
    // The form of a page without confirmation may have a password, which nobody keeps.
    if ((isToConfirm || isToEdit) && isConfirmed() && answerDraft()) {
        return;
    }
    if (getStep() == Step::DONE) {
        showDone();
        return;
    }
    readPresent();
    if (isToConfirm && isOutdated(seen)) {
        refuse(TEXT_CHANGED_MEANWHILE);
    } else if (isToConfirm || isToEdit) {
        m_revision = seen;
        submit();
    } else if (getStep() == Step::CUT_OFF) {
        refuse(TEXT_FORM_CUT_OFF);
    } else if (getStep() == Step::GONE) {
        refuse(TEXT_NO_DRAFT);
    }
    if (isToConfirm && !isRefused()) {
        if (areInputsValid()) {
            // A draft of a form that was to be applied already lacks the consent.
            if (getField(HTMLPage::FORM_PAGE_STATE) == pageStateOf(Step::APPLY) &&
                isConsentMissing()) {
                refuse(TEXT_CONSENT_MISSING);
            }
            showConfirmation();
            return;
        }
        refuse(TEXT_SOME_WRONG);
    }
    showForm();
}

void SettingsPage::makeConfigPage() {
    // At first: a form that is sent twice is not outdated by what it has changed itself.
    if (!claimForm()) {
        return;
    }
    const std::string seen = m_revision;
    readPresent();
    if (isOutdated(seen)) {
        if (!isConfirmed() || !answerDraft()) {
            refuse(TEXT_CHANGED_MEANWHILE);
            showForm();
        }
        return;
    }
    submit();
    const bool isRight = areInputsValid() && !isRefused();
    const bool isReady = isRight && !isConsentMissing();
    if (!isReady && isConfirmed() && answerDraft()) {
        return;
    }
    if (isRight && !isReady) {
        refuse(TEXT_CONSENT_MISSING);
        if (isConfirmed()) {
            showConfirmation();
            return;
        }
    } else if (isReady) {
        apply();
    }
    if (m_inputs.isAnyMarked() && !isRefused()) {
        refuse(TEXT_SOME_WRONG);
    }
    if (isRefused()) {
        showForm();
        return;
    }
    Record done = m_present;
    writeTexts(done);
    answerDone(done);
}

void SettingsPage::showDone() {
    RecordReader reader(getDone());
    if (isCompared()) {
        readTexts(reader);
        m_inputs.compareWithPresent();
    }
    readTexts(reader);
    reader.requireEnd();
    m_inputs.check([this](const Input& input) { return isNeeded(input); });
    showCompletion();
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<InputListView>(m_inputs, View::DONE));
}

/// The texts of all inputs. Of a secret one, only whether there is any.
void SettingsPage::writeTexts(Record& record) const {
    constexpr char SOME[] = "*";
    for (const Input* const input : m_inputs.getInputs()) {
        if (input->isSecret()) {
            record.emplace_back(input->isEmpty() ? "" : SOME);
        } else {
            input->write(record);
        }
    }
}

void SettingsPage::readTexts(RecordReader& reader) {
    for (Input* const input : m_inputs.getInputs()) {
        input->read(reader);
    }
}

void SettingsPage::readPresent() {
    readCurrent();
    Record record;
    for (const Input* const input : m_inputs.getInputs()) {
        if (isKept(*input)) {
            input->write(record);
        }
    }
    m_revision = sumOf(record);
    if (isCompared()) {
        m_inputs.compareWithPresent();
        m_present.clear();
        writeTexts(m_present);
    }
}

/// True when somebody has changed the settings since the user saw them; the inputs then have the
/// present ones. A form of another program need not carry a revision.
bool SettingsPage::isOutdated(const std::string& seen) const {
    return !seen.empty() && seen != m_revision;
}

bool SettingsPage::isConsentMissing() {
    return !findLockOut().empty() && !Consent::isGiven(getFields());
}

/// What the user would lose, as far as the input is valid.
std::string SettingsPage::findLockOut() {
    return m_inputs.isAnyMarked() ? "" : getLockOut();
}

void SettingsPage::submit() {
    m_inputs.submit(getFields());
}

bool SettingsPage::areInputsValid() {
    m_inputs.check([this](const Input& input) { return isNeeded(input); });
    checkInputs();
    return !m_inputs.isAnyMarked();
}

void SettingsPage::showForm() {
    beginForm(isConfirmed() ? Step::CONFIRM : Step::APPLY);
    putHelp(m_inputs);
    putEntries(View::EDITABLE);
    if (isConfirmed()) {
        putButton("submit", TEXT_NEXT);
    } else {
        putConsent();
        putApplyButton();
    }
}

void SettingsPage::showConfirmation() {
    if (m_inputs.isAnyChanged()) {
        beginConfirmation(getConfirmation(), TEXT_BACK,
                          isDangerous() ? TextString::ERROR_COLOUR : TextString::PLAIN);
        putConsent();
    } else {
        beginForm(Step::APPLY);
        putSentence(getMap(), "notice", text(TEXT_NOTHING_CHANGES));
        putButton(BACK_FIELD, TEXT_BACK);
    }
    if (isDangerous()) {
        putText(getMap(), "danger", "danger");
    }
    putEntries(View::CONFIRMED);
}

void SettingsPage::putConsent() {
    std::string lockOut = findLockOut();
    if (!lockOut.empty()) {
        putText(getMap(), "danger", "danger");
        HTMLMapUtil::insertIntoMap(getMap(), "consent",
                                   std::make_unique<Consent>(std::move(lockOut)));
    }
}

void SettingsPage::putEntries(View view) {
    carry(REVISION_FIELD, m_revision);
    carryMore();
    putRows();
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<InputListView>(m_inputs, view));
}

}  // namespace Console
