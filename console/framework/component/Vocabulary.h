#pragma once

#include <string>
#include <vector>

#include "catalogue/Texts.h"
#include "framework/component/Components.h"
#include "gui/MessageMgr.h"
#include "gui/TextString.h"

namespace Console {

/// A word of the board, and the text that says it to the user, in one of TextString's colours.
struct Word {
    const char* word;
    Text text;
    int colour = ORVLib::Gui::TextString::PLAIN;
};

using Vocabulary = std::vector<Word>;

/// What the board calls roles, and the severities and sources of events.
const Vocabulary& roles();
const Vocabulary& severities();
const Vocabulary& sources();

/// The role of those who administer some partitions.
constexpr char ROLE_PARTITION[] = "partition";

/// A word in the user's language. One that is not among the words stays as it is: a later board
/// may have more of them.
std::string translate(ORVLib::Gui::MessageMgr& messages, const Vocabulary& words,
                      const std::string& word);

/// As translate(), in the word's colour.
Component makeWord(ORVLib::Gui::MessageMgr& messages, const Vocabulary& words,
                   const std::string& word);

}  // namespace Console
