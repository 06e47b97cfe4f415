#include "orv/PException.h"

#include <cstring>

#include "common/ByteOrder.h"

namespace ORVLib {

namespace {

// The serialised form is six numbers, then the arguments. An argument is a byte with its kind and
// four bytes with the number, or with the length of the text that follows them.
constexpr unsigned int NUMBER_SIZE = 4;
constexpr unsigned int HEADER_SIZE = 6 * NUMBER_SIZE;
constexpr unsigned int ARGUMENT_HEADER_SIZE = 1 + NUMBER_SIZE;
constexpr unsigned char KIND_NUMBER = 0;
constexpr unsigned char KIND_TEXT = 1;

unsigned int textLength(const PException::Argument& argument) {
    return static_cast<unsigned int>(argument.getText().size());
}

}  // namespace

PException::PException(int category, int subCategory, int module, int actionCode,
                       int exceptionDetail, int messageNumber, const Argument& argument1,
                       const Argument& argument2, const Argument& argument3,
                       const Argument& argument4, const Argument& argument5,
                       const Argument& argument6, const Argument& argument7,
                       const Argument& argument8)
    : m_category(category),
      m_subCategory(subCategory),
      m_module(module),
      m_actionCode(actionCode),
      m_exceptionDetail(exceptionDetail),
      m_messageNumber(messageNumber),
      m_arguments{argument1, argument2, argument3, argument4,
                  argument5, argument6, argument7, argument8} {}

unsigned char PException::getActionCode() const {
    return static_cast<unsigned char>(m_actionCode);
}

unsigned int PException::getExceptionDetail() const {
    return static_cast<unsigned int>(m_exceptionDetail);
}

const PException::Argument& PException::getArgument(int index) const {
    return m_arguments.at(static_cast<std::size_t>(index));
}

unsigned int PException::getSerializedSize() const {
    unsigned int size = HEADER_SIZE;
    for (const Argument& argument : m_arguments) {
        size += ARGUMENT_HEADER_SIZE + textLength(argument);
    }
    return size;
}

unsigned int PException::getSerialized(unsigned char* buffer, unsigned int size) const {
    const unsigned int needed = getSerializedSize();
    if (size < needed) {
        return 0;
    }
    for (const int number :
         {m_category, m_subCategory, m_module, m_actionCode, m_exceptionDetail, m_messageNumber}) {
        Bytes::write32(buffer, number);
        buffer += NUMBER_SIZE;
    }
    for (const Argument& argument : m_arguments) {
        *buffer++ = argument.isText() ? KIND_TEXT : KIND_NUMBER;
        if (argument.isText()) {
            Bytes::write32(buffer, textLength(argument));
        } else {
            Bytes::write32(buffer, argument.getNumber());
        }
        buffer += NUMBER_SIZE;
        std::memcpy(buffer, argument.getText().data(), textLength(argument));
        buffer += textLength(argument);
    }
    return needed;
}

bool PException::setSerialized(const unsigned char* data, unsigned int size) {
    if (size < HEADER_SIZE) {
        return false;
    }
    PException read;
    for (int* number : {&read.m_category, &read.m_subCategory, &read.m_module, &read.m_actionCode,
                        &read.m_exceptionDetail, &read.m_messageNumber}) {
        *number = Bytes::readSigned32(data);
        data += NUMBER_SIZE;
    }
    unsigned int left = size - HEADER_SIZE;
    for (Argument& argument : read.m_arguments) {
        if (left < ARGUMENT_HEADER_SIZE) {
            return false;
        }
        const unsigned char kind = *data;
        const unsigned char* content = data + 1;
        data += ARGUMENT_HEADER_SIZE;
        left -= ARGUMENT_HEADER_SIZE;
        if (kind == KIND_NUMBER) {
            argument = Argument(Bytes::readSigned32(content));
            continue;
        }
        const unsigned int length = Bytes::read32(content);
        if (kind != KIND_TEXT || length > left) {
            return false;
        }
        argument = Argument(std::string(data, data + length));
        data += length;
        left -= length;
    }
    *this = read;
    return true;
}

}  // namespace ORVLib
