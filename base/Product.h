// Names, addresses and version of the program, each once.
#pragma once
#include <string>

namespace clb::product {

/// The program's name in captions and messages.
inline constexpr const char* Title = "Corvane Ledgerbook";
/// "Corvane Ledgerbook 1.0.0".
[[nodiscard]] std::string TitleAndVersion();

/// The maker's name and pages.
inline constexpr const char* Maker = "Corvane";
inline constexpr const char* HomePage = "https://corvane.example/";
inline constexpr const char* TutorialPage = "https://corvane.example/ledgerbook/tutorial";

/// The quote service that is asked if no other is set: the local one of "clb quote-server".
inline constexpr const char* QuoteService = "http://127.0.0.1:8271";

/// The first lines of the licence.
inline constexpr const char* LegalNotice =
    "MIT License\n\nCopyright (c) 2026 Corvane\n\nPermission is hereby granted, free of charge, to "
    "any person obtaining a copy of this software and associated documentation files (the "
    "\"Software\"), to deal in the Software without restriction.";

}  // namespace clb::product
