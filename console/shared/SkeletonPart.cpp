#include "shared/SkeletonPart.h"

#include "gui/HTMLPage.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

std::string skeletonPath(const std::string& name) {
    const std::string top = HTMLPage::SKELETON_FILE_NAME;
    return top.substr(0, top.rfind('/') + 1) + name;
}

}  // namespace

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

void SkeletonPart::put(const std::string& marker, std::unique_ptr<HTMLComponent> component) {
    HTMLMapUtil::insertIntoMap(m_map, marker, std::move(component));
}

void SkeletonPart::putText(const std::string& marker, const std::string& text) {
    put(marker, std::make_unique<TextString>(text));
}

}  // namespace Console
