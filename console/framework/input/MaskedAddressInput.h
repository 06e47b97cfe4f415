#pragma once

#include <string>

#include "framework/input/BoxesInput.h"

namespace Console {

/// An IPv4 address with its mask bits: two texts of a record.
class MaskedAddressInput : public BoxesInput {
public:
    explicit MaskedAddressInput(const std::string& name);

    /// The text is the address, a slash and the mask bits.
    void setText(const std::string& text) override;
    std::string getText() const override;
    void read(RecordReader& record) override;
    void write(Record& record) const override;
    void print() const override;
    std::string getBoxName(std::size_t box) const override;

private:
    bool isGood() const override;
    std::string address() const;
    std::string maskBits() const;
};

}  // namespace Console
