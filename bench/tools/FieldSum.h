#pragma once

#include <cstdint>
#include <string>

namespace Bench {

/// Number and content of fields, in whatever order they come, so that each is looked at once and
/// what two programs read can be compared.
class FieldSum {
public:
    void add(const std::string& name, const std::string& value) {
        m_sum += hash(hash(START, name) ^ '=', value);
        ++m_count;
    }

    unsigned int getCount() const { return m_count; }
    std::uint64_t getSum() const { return m_sum; }

private:
    static constexpr std::uint64_t START = 14695981039346656037U;
    static constexpr std::uint64_t PRIME = 1099511628211U;

    static std::uint64_t hash(std::uint64_t state, const std::string& text) {
        for (const char character : text) {
            state = (state ^ static_cast<unsigned char>(character)) * PRIME;
        }
        return state;
    }

    unsigned int m_count = 0;
    std::uint64_t m_sum = 0;
};

}  // namespace Bench
