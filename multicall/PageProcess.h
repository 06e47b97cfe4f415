#pragma once

#include "common/FileDescriptor.h"
#include "multicall/ServerOptions.h"

namespace ORVLib::MultiCall {

/// The process of one request: receives it, makes this process a CGI program with the request's
/// environment and body, and runs the page. A request without a page is answered with a short text.
///
/// REQUIRES: a process of its own, forked from the server, in which only `connection` and the
/// standard descriptors are open.
[[noreturn]] void servePage(FileDescriptor connection, const ServerOptions& options) noexcept;

}  // namespace ORVLib::MultiCall
