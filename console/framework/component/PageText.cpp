#include "framework/component/PageText.h"

#include <cassert>

namespace Console {

namespace {

ORVLib::Gui::MessageMgr* pageTexts = nullptr;

}  // namespace

void setPageTexts(ORVLib::Gui::MessageMgr& messages) {
    pageTexts = &messages;
}

std::string text(Text number) {
    assert(pageTexts != nullptr);
    return pageTexts->getString(number);
}

}  // namespace Console
