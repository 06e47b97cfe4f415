#pragma once

#include <fstream>
#include <iterator>
#include <string>

inline void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A text and the expected result.
struct TextCase {
    std::string text;
    std::string expected;
};

/// A text of bytes that may hold NUL: bytes("a\0b").
template <std::size_t SIZE>
std::string bytes(const char (&text)[SIZE]) {
    return {text, SIZE - 1};
}
