#include "framework/component/ListPart.h"

#include "framework/component/PageText.h"

using namespace ORVLib::Gui;

namespace Console {

ListPart::ListPart(Text title, const std::string& purpose, Component content)
    : SkeletonPart("skeleton_list.txt") {
    putText("title", text(title));
    putSentence("purpose", purpose);
    put("content", std::move(content));
}

void ListPart::putError(Text problem) {
    put("error", makeSentence(text(problem), TextString::ERROR_COLOUR));
}

}  // namespace Console
