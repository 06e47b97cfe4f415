#pragma once

#include "shared/ConsoleMain.h"

namespace Console {

/// The main object of a page that works on one partition: the one the request names, otherwise the
/// first that the user may use the function on.
class PartitionMain : public ConsoleMain {
public:
    static constexpr char PARTITION_FIELD[] = "partition";

protected:
    using ConsoleMain::ConsoleMain;

private:
    void choosePartition(PageContext& context) final;
};

/// For SettingsPage::carry() and links: where the page of a function shows a partition.
std::string partitionPath(Function function, int partition);

}  // namespace Console
