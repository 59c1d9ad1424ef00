// Offers to make a book in a folder that has none.
#pragma once
#include <QMessageBox>
#include <memory>
#include <string>

namespace clb {

/// The question whether to make a new book in the folder, not shown yet. Its buttons are "make" and
/// "quit".
std::unique_ptr<QMessageBox> BuildNewBookOffer(const std::string& folder);

/// Asks it, and makes the book if the user wants that. Returns false if not. Throws PortError if
/// the folder cannot be written.
bool OfferNewBook(const std::string& folder);

}  // namespace clb
