#pragma once

#include <string>

#include "TextForm.h"

/// The names of texts: a page uses `TEXT_NEXT` where the text form says `42 TEXT_NEXT Next`.
namespace ORVLib::Catalogue {

/// The texts that `others` has, the same ones in another language, and `texts` lacks. `othersFile`
/// is named in the problems, which have no line of their own.
std::vector<Problem> findMissing(const TextReader& texts, const TextReader& others,
                                 const std::string& othersFile);

/// The texts that have another name or other placeholders ("%s", "%1") in `others`.
std::vector<Problem> findDifferences(const TextReader& texts, const TextReader& others,
                                     const std::string& othersFile);

/// A C++ header with an enumeration `Text` of all names in the namespace `nameSpace`.
std::string makeHeader(const TextReader& texts, const std::string& nameSpace);

}  // namespace ORVLib::Catalogue
