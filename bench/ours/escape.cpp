// Escapes a long text: escape.cgi html|url|str plain|special MIB PASSES. A plain text needs no
// change and stays in place; one of special characters is copied for each pass.

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "gui/MessageMgr.h"

using ORVLib::Gui::MessageMgr;

namespace {

struct Operation {
    std::function<void(std::string&)> run;
    char special;
};

const std::map<std::string, Operation> OPERATIONS = {
    {"html", {MessageMgr::convertHTML, '&'}},
    {"url", {MessageMgr::encodeURL, '#'}},
    {"str", {[](std::string& text) { MessageMgr::convertStr(text, "\"", "&quot;"); }, '"'}},
};

/// Lines of letters, which no operation changes.
std::string plainText(std::size_t size) {
    const std::string line = "the-quick-brown-fox-jumps-over-the-lazy-dog,and-then-once-more.\n";
    std::string text;
    text.reserve(size);
    while (text.size() + line.size() <= size) {
        text += line;
    }
    text.resize(size, 'x');
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        return 2;
    }
    const Operation& operation = OPERATIONS.at(argv[1]);
    const bool plain = std::string(argv[2]) == "plain";
    const std::size_t size = std::strtoul(argv[3], nullptr, 10) << 20;
    const std::string text = plain ? plainText(size) : std::string(size, operation.special);
    std::string result = text;
    for (int pass = std::atoi(argv[4]); pass > 0; --pass) {
        if (!plain) {
            result = text;
        }
        operation.run(result);
    }
    std::cout << result.size() << '\n';
    return 0;
}
