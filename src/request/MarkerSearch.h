#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace ORVLib::Gui {

/// Searches for the marker that ends a file.
///
/// One pair of bytes in each marker's length is looked up in a table of the marker's pairs. A
/// marker is so long that one of its pairs is looked up wherever it is. memmem() does the same with
/// a smaller table, and each look-up waits for the one before: it takes twice as long for random
/// bytes, and four times as long for line ends.
class MarkerSearch {
public:
    /// `marker` has at least two bytes and must outlive this object.
    explicit MarkerSearch(std::string_view marker)
        : m_marker(marker), m_pairs(std::min(marker.size() - 1, MOST_PAIRS)) {
        for (std::size_t i = 0; i < m_pairs; ++i) {
            unsigned char& last = m_last[hash(marker.data() + i)];
            m_before[i] = last;
            last = static_cast<unsigned char>(i + 1);
        }
    }

    /// The first marker that is wholly in [from, to), or null.
    char* find(char* from, char* to) const {
        const auto size = static_cast<std::size_t>(to - from);
        for (std::size_t at = m_pairs - 1; at + 2 <= size; at += m_pairs) {
            char* const pair = from + at;
            // The last place of the pair in the marker belongs to the first possible marker.
            for (std::size_t place = m_last[hash(pair)]; place != 0; place = m_before[place - 1]) {
                char* const start = pair - (place - 1);
                if (isMarker(start, to)) {
                    return start;
                }
            }
        }
        return nullptr;
    }

private:
    static constexpr std::size_t HASHES = 4096;
    static constexpr std::size_t MOST_PAIRS = 255;  // numbers of places are bytes, 0 for none

    static unsigned int hash(const char* pair) {
        return static_cast<unsigned char>(pair[0]) ^
               static_cast<unsigned int>(static_cast<unsigned char>(pair[1]) << 4);
    }

    bool isMarker(const char* start, const char* to) const {
        const std::size_t size = m_marker.size();
        return start[0] == m_marker[0] && static_cast<std::size_t>(to - start) >= size &&
               start[size - 1] == m_marker[size - 1] &&
               std::memcmp(start, m_marker.data(), size) == 0;
    }

    std::string_view m_marker;
    std::size_t m_pairs;
    unsigned char m_last[HASHES] = {};        // the last place of a pair with this hash
    unsigned char m_before[MOST_PAIRS] = {};  // the place before with the same hash
};

}  // namespace ORVLib::Gui
