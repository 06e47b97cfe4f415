// A skeleton and the components at its markers: the page against a plain reading of both.
#include <algorithm>

#include "Input.h"
#include "gui/MessageMgr.h"
#include "gui/OutlineFramePage.h"
#include "gui/TextString.h"
#include "support/Captured.h"

using namespace ORVLib::Gui;

namespace {

std::string pageOf(const std::string& skeleton, const ComponentMap& components) {
    std::string page;
    for (std::size_t at = 0; at < skeleton.size(); ++at) {
        if (skeleton[at] != '$') {
            page += skeleton[at];
            continue;
        }
        const std::size_t end = std::min(skeleton.find('$', at + 1), skeleton.size());
        const std::string marker = skeleton.substr(at + 1, end - at - 1);
        const auto component = components.find(marker);
        if (marker.empty()) {
            page += '$';
        } else if (component != components.end()) {
            page += printed(*component->second);
        }
        at = end;
    }
    return page;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Input input(data, size);
    MessageMgr messages(1);
    OutlineFramePage page(static_cast<int>(input.number()), messages);
    page.setFunctionPath(input.text());
    page.makeInfoPath(input.text(), input.text(), input.text());
    page.makeMenuPath(input.signedNumber(), static_cast<int>(input.number()));
    page.createPage();
    for (unsigned int components = input.number() % 8; components > 0; --components) {
        HTMLMapUtil::insertIntoMap(page.getMap(), input.text(), new TextString(input.text()));
    }
    const std::string skeleton = input.body();
    Fuzz::setOpenFile(skeleton);
    const std::string expected = pageOf(skeleton, page.getMap());
    const CapturedOutput output;
    page.getGenerator().printHTML();
    Fuzz::require(output.text() == expected && !page.getGenerator().isError());
    return 0;
}
