#pragma once

#include <array>
#include <string>

#include "orv/SerializableObject.h"

namespace ORVLib {

/// The exception of the board's libraries: what failed, as numbers and the arguments of a
/// message of the platform catalogue.
///
/// The daemon sends it as the payload of an error response, in its serialised form.
class PException : public SerializableObject {
public:
    /// One argument of the message: an integer of 32 bits or a text.
    class Argument {
    public:
        /// Made from what it is to hold.
        Argument(int number = 0) : m_number(number) {}
        Argument(const char* text) : m_isText(true), m_text(text) {}
        Argument(const std::string& text) : m_isText(true), m_text(text) {}

        /// Which of the two it is, and its value; that of the other kind is 0 or empty.
        bool isText() const { return m_isText; }
        int getNumber() const { return m_number; }
        const std::string& getText() const { return m_text; }

    private:
        bool m_isText = false;
        int m_number = 0;
        std::string m_text;
    };

    /// Arguments of a message.
    static constexpr int ARGUMENT_COUNT = 8;

    /// An exception without content, to be filled by setSerialized().
    PException() = default;

    /// `category`, `subCategory` and `module` say where it comes from as in OrvTrace.
    /// `actionCode` counts in its low 8 bits. `exceptionDetail` is the error number that reaches
    /// the user. `messageNumber` and the arguments name a text of lmsg_getmsg().
    PException(int category, int subCategory, int module, int actionCode, int exceptionDetail,
               int messageNumber, const Argument& argument1, const Argument& argument2,
               const Argument& argument3, const Argument& argument4, const Argument& argument5,
               const Argument& argument6, const Argument& argument7, const Argument& argument8);

    /// What the constructor was given, or the bytes of another process said.
    unsigned char getActionCode() const;
    unsigned int getExceptionDetail() const;
    int getMessageNumber() const { return m_messageNumber; }

    /// REQUIRES: 0 <= index < ARGUMENT_COUNT.
    const Argument& getArgument(int index) const;

    unsigned int getSerialized(unsigned char* buffer, unsigned int size) const override;
    unsigned int getSerializedSize() const override;

    /// Leaves the exception as it was when the bytes are not a serialised exception.
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
