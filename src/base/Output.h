#pragma once

#include <cstddef>
#include <string_view>

namespace ORVLib::Gui {

/// Gathers the pieces of a component and writes them to std::cout at once, because a write of the
/// stream costs far more than a copy.
///
/// The format of std::cout has no effect: texts are not padded, and numbers are decimal digits.
/// Format flags, width, fill character and locale that a page sets remain as they are.
///
/// REQUIRES: a component calls print() at its end, and before other code may write to std::cout.
class Output {
public:
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    Output& operator<<(std::string_view text);
    Output& operator<<(char character) {
        if (m_size == sizeof m_pieces) {
            print();
        }
        m_pieces[m_size++] = character;
        return *this;
    }
    Output& operator<<(int number);

    /// Ends the line and flushes std::cout. While a page is printed from its skeleton, the standard
    /// buffer of std::cout is flushed once at the end instead: one write costs least. A buffer that
    /// the page has chosen is always flushed.
    void endLine();

    /// Writes the pieces to std::cout.
    void print();

    /// Sends what is in std::cout. Returns false when not all of the page was sent.
    static bool flush();

    /// A page is printed from its skeleton during this object's lifetime. Pages may be nested.
    class Page {
    public:
        Page();
        ~Page();
        Page(const Page&) = delete;
        Page& operator=(const Page&) = delete;

        /// Does the flush that was left out, at the end of the outermost page.
        void end() const;
    };

private:
    std::size_t m_size = 0;
    char m_pieces[1024];
};

}  // namespace ORVLib::Gui
