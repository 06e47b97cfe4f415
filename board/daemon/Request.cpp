#include "daemon/Request.h"

namespace ORVLib::Board {

bool Request::hasPayload() const {
    switch (type) {
        case PROCEDURE_LOGIN:
        case PROCEDURE_CHECK_SESSION:
            return true;
        default:
            return (type & FAMILY_MASK) == FAMILY && access != ACCESS_READ;
    }
}

bool Request::hasPassword() const {
    return type == PROCEDURE_LOGIN ||
           (access == ACCESS_WRITE && item.rules->kind == Kind::PASSWORD);
}

}  // namespace ORVLib::Board
