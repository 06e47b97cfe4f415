#include "gui/HTMLPage.h"

#include "base/SitePaths.h"
#include "gui/TextString.h"

namespace ORVLib::Gui {

const char* HTMLPage::SKELETON_FILE_NAME = SitePaths::SKELETON_TOP;
const char* HTMLPage::SKELETON_ERR_FILE_NAME = SitePaths::SKELETON_ERR;

const std::string HTMLPage::FORM_PAGE_STATE = "page_state";
const std::string HTMLPage::KEY_JAVA_SCRIPT = "java_script";
const std::string HTMLPage::KEY_BODY = "body";
const std::string HTMLPage::KEY_COOKIE = "cookie";

HTMLPage::HTMLPage(int language) : m_generator(std::make_unique<HTMLCodeGenerator>(&m_map)) {
    HTMLMapUtil::insertIntoMap(m_map, "destination",
                               new TextString(language == 0 ? "EUC-JP" : "iso-8859-1"));
}

HTMLPage::~HTMLPage() {
    m_generator.reset();
    HTMLMapUtil::clearMap(m_map);
}

}  // namespace ORVLib::Gui
