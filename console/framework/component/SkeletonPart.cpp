#include "framework/component/SkeletonPart.h"

#include "framework/component/PageChrome.h"

using namespace ORVLib::Gui;

namespace Console {

SkeletonPart::SkeletonPart(const std::string& skeleton) : m_generator(&m_map) {
    m_generator.setSkeletonFileName(skeletonPath(skeleton));
}

SkeletonPart::~SkeletonPart() {
    HTMLMapUtil::clearMap(m_map);
}

void SkeletonPart::printHTML() const {
    m_generator.printHTML();
}

bool SkeletonPart::isError() const {
    return m_generator.isError();
}

void SkeletonPart::put(const std::string& marker, Component component) {
    HTMLMapUtil::insertIntoMap(m_map, marker, std::move(component));
}

void SkeletonPart::putText(const std::string& marker, const std::string& text) {
    Console::putText(m_map, marker, text);
}

void SkeletonPart::putSentence(const std::string& marker, const std::string& text) {
    Console::putSentence(m_map, marker, text);
}

}  // namespace Console
