#include "framework/backend/Digits.h"

namespace Console {

bool isDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

int readDigits(const std::string& text, std::size_t mostDigits) {
    return isDigits(text) && text.size() <= mostDigits ? std::stoi(text) : -1;
}

std::string withoutLeadingZeros(const std::string& digits) {
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string::npos ? "0" : digits.substr(first);
}

}  // namespace Console
