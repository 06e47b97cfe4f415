#include "OperatorTexts.h"

namespace ORVLib::OperatorTexts {

namespace {

constexpr Text TEXTS[] = {
    {1, "The settings have been changed."},
    {2, "The password has been changed."},
    {11, "The request could not be carried out. Please try again."},
    {13, "The management board is not able to answer. Please try again later."},
    {14, "The management board did not answer in time. Please try again later."},
    {20, "Communication with the management board failed."},
    {24, "An internal error occurred while the page was being made."},
    {78, "The management board refused the request."},
    {79, "The management board reported an error while it carried out the request."},
    {105, "Another operation is in progress. Please wait until it has ended."},
    {200, "The row has been added to the access control list."},
    {201, "The row has been removed from the access control list."},
};

}  // namespace

Table english() {
    return {TEXTS, sizeof TEXTS / sizeof *TEXTS};
}

}  // namespace ORVLib::OperatorTexts
