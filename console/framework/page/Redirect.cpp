#include "framework/page/Redirect.h"

#include "framework/access/PageLimits.h"
#include "framework/component/PageChrome.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace Console {

void printRedirect(HTMLPage& page, const std::string& path) {
    HTMLMapUtil::insertIntoMap(page.getMap(), "location",
                               std::make_unique<TextString>(path, false, true));
    putText(page.getMap(), "link", path);
    page.getGenerator().setSkeletonFileName(skeletonPath("skeleton_redirect.txt"));
    notePageBegun();
    page.getGenerator().printHTML();
}

}  // namespace Console
