#pragma once

#include <array>
#include <string>

#include "orv/SerializableObject.h"

namespace ORVLib {

/// The exception of the board's libraries: an error number, an action code, and the number and
/// arguments of a log text.
///
/// In its serialised form it is the payload of the daemon's error responses.
///
/// @code
/// try {
///     throw PException(1, 2, 7, 0, 1028, 20003, "readFan()", 0, 0, 0, 0, 0, 0, 0);
/// } catch (const PException& e) {
///     std::cout << "error " << e.getExceptionDetail();  // 1028
/// }
/// @endcode
class PException : public SerializableObject {
public:
    /// One argument of the message: an integer of 32 bits or a text.
    class Argument {
    public:
        /// An argument with a value. A text is copied.
        Argument(int number = 0) : m_number(number) {}
        Argument(const char* text) : m_isText(true), m_text(text) {}
        Argument(const std::string& text) : m_isText(true), m_text(text) {}

        /// The type of the argument, and its value. The value of the other type is 0 or empty.
        bool isText() const { return m_isText; }
        int getNumber() const { return m_number; }
        const std::string& getText() const { return m_text; }

    private:
        bool m_isText = false;
        int m_number = 0;
        std::string m_text;
    };

    /// Number of arguments; unused ones are 0.
    static constexpr int ARGUMENT_COUNT = 8;

    /// An empty exception, for setSerialized().
    PException() = default;

    /// `category`, `subCategory` and `module` identify the thrower, as in OrvTrace. Only the low 8
    /// bits of `actionCode` count. `exceptionDetail` is the error number that the user sees.
    /// `messageNumber` and the arguments are those of lmsg_getmsg().
    PException(int category, int subCategory, int module, int actionCode, int exceptionDetail,
               int messageNumber, const Argument& argument1, const Argument& argument2,
               const Argument& argument3, const Argument& argument4, const Argument& argument5,
               const Argument& argument6, const Argument& argument7, const Argument& argument8);

    /// The values that the constructor or setSerialized() stored.
    unsigned char getActionCode() const;
    unsigned int getExceptionDetail() const;
    int getMessageNumber() const { return m_messageNumber; }

    /// REQUIRES: 0 <= index < ARGUMENT_COUNT.
    const Argument& getArgument(int index) const;

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override;
    unsigned int getSerializedSize() const override;

    /// Returns false and changes nothing when the bytes are not a serialised exception.
    bool setSerialized(const unsigned char* data, unsigned int size) override;

private:
    int m_category = 0;
    int m_subCategory = 0;
    int m_module = 0;
    int m_actionCode = 0;
    int m_exceptionDetail = 0;
    int m_messageNumber = 0;
    std::array<Argument, ARGUMENT_COUNT> m_arguments;
};

}  // namespace ORVLib
