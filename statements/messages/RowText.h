// Puts a row's texts together.
#pragma once
#include <string>
#include <string_view>

namespace clb {

/// The text with every run of white space as one space, and none at its ends.
[[nodiscard]] std::string Squeezed(std::string_view text);

/// Whether the text is what banks write where they have no reference or name, such as
/// "NOTPROVIDED".
[[nodiscard]] bool IsNoReference(std::string_view text);

/// Whether a reference is fit to recognise the same row in another file: so many characters long
/// that it is not a running number, with a digit, and neither an account number (IBAN) nor zeros
/// only.
[[nodiscard]] bool IsIdentifying(std::string_view reference, std::size_t length);

/// Whether the text is an IBAN whose check digits are right.
[[nodiscard]] bool IsIban(std::string_view text);

/// Collects the parts of a row's text, "; " between them. Leaves out what is there already.
class RowText {
public:
    void Add(std::string_view part);
    /// Adds "LABEL value", unless the value is empty or says that there is none.
    void Add(std::string_view label, std::string_view value);
    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    [[nodiscard]] bool Has(const std::string& part) const;
    void Append(const std::string& part);
    std::string text_;
};

/// The first words of a text, at most 100 characters.
[[nodiscard]] std::string FirstWords(const std::string& text);

}  // namespace clb
