#pragma once

#include <string>

#include "item/Call.h"

/// The settings as a text file that people keep.
namespace ORVLib::Board::Backup {

/// ITEM_BACKUP: the file of the present settings.
std::string read(const Call& call);

/// Restores the settings of a file, all or none. Throws PException with ERROR_DAMAGED, and the
/// number of the line, for anything that read() does not make.
void restore(const Call& call);

}  // namespace ORVLib::Board::Backup
