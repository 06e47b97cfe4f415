#include "BinaryForm.h"

#include <cstdint>

#include "Failure.h"
#include "Limits.h"
#include "common/ByteOrder.h"

namespace ORVLib::Catalogue {

namespace {

constexpr std::size_t NUMBER_SIZE = 4;

void append32(std::string& bytes, std::uint32_t number) {
    unsigned char buffer[NUMBER_SIZE];
    Bytes::write32(buffer, number);
    bytes.append(buffer, buffer + NUMBER_SIZE);
}

std::uint32_t read32(std::string_view bytes, std::size_t at) {
    return Bytes::read32(reinterpret_cast<const unsigned char*>(bytes.data() + at));
}

}  // namespace

std::string makeBinary(const std::vector<std::string>& strings) {
    std::string table;
    std::string area;
    append32(table, static_cast<std::uint32_t>(strings.size()));
    for (const std::string& string : strings) {
        append32(table, static_cast<std::uint32_t>(area.size()));
        area += string;
        area += '\0';
        if (table.size() + area.size() > MAX_BINARY_SIZE) {
            throw Failure("the catalogue would be larger than 64 MiB");
        }
    }
    return table + area;
}

std::vector<std::string_view> readBinary(std::string_view file) {
    if (file.size() < NUMBER_SIZE) {
        throw Failure("too short for a catalogue: the number of strings is cut off");
    }
    const std::uint32_t count = read32(file, 0);
    if (count > MAX_NUMBER + 1 || count > file.size() / NUMBER_SIZE - 1) {
        throw Failure("damaged: " + std::to_string(count) + " strings do not fit in this file");
    }
    const std::string_view area = file.substr(NUMBER_SIZE * (count + 1));
    std::vector<std::string_view> strings;
    std::size_t left = MAX_BINARY_SIZE;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t offset = read32(file, NUMBER_SIZE * (i + 1));
        if (offset > area.size()) {
            throw Failure("damaged: string " + std::to_string(i) + " begins after the end");
        }
        const std::string_view rest = area.substr(offset);
        strings.push_back(rest.substr(0, rest.find('\0')));
        // Strings may share bytes; they must not add up to more than a catalogue can hold.
        if (strings.back().size() >= left) {
            throw Failure("damaged: the strings add up to more than 64 MiB");
        }
        left -= strings.back().size() + 1;
    }
    return strings;
}

}  // namespace ORVLib::Catalogue
