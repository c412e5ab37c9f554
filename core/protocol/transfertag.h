#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixmo {

/// What a background transfer fetches. Its name, by which reader, log and pending transfers know it, is "IC"
/// for the initial contact, "PC" and the document for a page count, "GP", document and page for a page, with
/// the protocol's delimiter between.
class TransferTag {
public:
    enum class Kind : uint8_t {
        InitialContact,
        PageCount,
        Page,
        Ignored, ///< "PP", an answer that nothing is done with
        Unknown,
    };

    /// Reads a name.
    TransferTag(const std::string& name, const std::string& delimiter);
    static TransferTag initialContact();
    static TransferTag pageCount(int32_t document, const std::string& delimiter);
    static TransferTag page(int32_t document, int16_t page, const std::string& delimiter);

    const std::string& name() const { return name_; }
    Kind kind() const;
    bool hasDocument() const { return fields_.size() > 1; }
    bool hasPage() const { return fields_.size() > 2; }
    /// As the name has it. Throws subscript out of range (9) where there is none.
    const std::string& documentText() const { return field(1); }
    /// The same; type mismatch (13) or overflow (6) where it is no such number.
    int32_t document() const;
    int16_t page() const;

private:
    const std::string& field(size_t index) const;

    std::string name_;
    std::vector<std::string> fields_;
};

} // namespace pixmo
