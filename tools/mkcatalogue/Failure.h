#pragma once

#include <stdexcept>

namespace ORVLib::Catalogue {

/// What went wrong, as one line for the operator.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace ORVLib::Catalogue
