#pragma once

#include "framework/page/ConsoleMain.h"

namespace Console {

/// The main object of a page that works on one partition: the one the request names, otherwise the
/// first that the user may use the function on.
class PartitionMain : public ConsoleMain {
protected:
    using ConsoleMain::ConsoleMain;

private:
    void choosePartition(PageContext& context) final;
};

}  // namespace Console
