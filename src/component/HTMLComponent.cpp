#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

HTMLComponent::~HTMLComponent() = default;

}  // namespace ORVLib::Gui
