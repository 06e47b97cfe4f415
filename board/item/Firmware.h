#pragma once

#include <string>

#include "item/Call.h"

/// Receives and installs a firmware image.
namespace ORVLib::Board::Firmware {

/// Contents of ITEM_FIRMWARE_STAGE, ITEM_FIRMWARE_START and ITEM_FIRMWARE_DROP.
bool isPiece(const std::string& content);
bool isDigest(const std::string& content);
bool isDrop(const std::string& content);

/// ITEM_FIRMWARE_STAGE: a piece of the image.
void stage(const Call& call);

/// ITEM_FIRMWARE_STAGED: the size, digest and version of the image that the session has staged.
std::string readStaged(const Call& call);

/// ITEM_FIRMWARE_START: installs the staged image, which then is no longer staged.
void start(const Call& call);

/// ITEM_FIRMWARE_DROP.
void drop(const Call& call);

/// ITEM_PROGRESS.
std::string readProgress(const Call& call);

/// Drops the image of a session that has ended.
void dropOrphan(const Parts& parts);

}  // namespace ORVLib::Board::Firmware
