#include "gui/HTMLMapUtil.h"

namespace ORVLib::Gui {

bool HTMLMapUtil::insertIntoMap(ComponentMap& map, const std::string& key,
                                HTMLComponent* component) {
    std::unique_ptr<HTMLComponent> owned(component);
    const auto [entry, inserted] = map.try_emplace(key, component);
    if (!inserted && entry->second != component) {
        delete entry->second;
        entry->second = component;
    }
    static_cast<void>(owned.release());
    return inserted;
}

void HTMLMapUtil::clearMap(ComponentMap& map) {
    for (const auto& entry : map) {
        delete entry.second;
    }
    map.clear();
}

}  // namespace ORVLib::Gui
