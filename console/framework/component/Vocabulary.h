#pragma once

#include <string>
#include <vector>

#include "catalogue/Texts.h"
#include "framework/component/Components.h"
#include "gui/TextString.h"

namespace Console {

/// A word of the board, and its text for the user in one of TextString's colours.
struct Word {
    const char* word;
    Text text;
    int colour = ORVLib::Gui::TextString::PLAIN;
};

using Vocabulary = std::vector<Word>;

/// The board's words for roles, and for severities and sources of events.
const Vocabulary& roles();
const Vocabulary& severities();
const Vocabulary& sources();

/// The roles of the administrators, and of those of some partitions.
constexpr char ROLE_ADMINISTRATOR[] = "administrator";
constexpr char ROLE_PARTITION[] = "partition";

/// A word in the user's language. An unknown word is returned unchanged: a later board may have
/// more words.
std::string translate(const Vocabulary& words, const std::string& word);

/// As translate(), in the word's colour.
Component makeWord(const Vocabulary& words, const std::string& word);

}  // namespace Console
