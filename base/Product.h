// Names, addresses and version of the program, each once.
#pragma once
#include <string>

namespace clb::product {

/// The program's name in captions and messages.
inline constexpr const char* kTitle = "Corvane Ledgerbook";
/// "Corvane Ledgerbook 1.0.0".
[[nodiscard]] std::string TitleAndVersion();

/// The maker's name and pages.
inline constexpr const char* kMaker = "Corvane";
inline constexpr const char* kHomePage = "https://corvane.example/";
inline constexpr const char* kTutorialPage = "https://corvane.example/ledgerbook/tutorial";

/// The default quote service: the local one of "clb quote-server".
inline constexpr const char* kQuoteService = "http://127.0.0.1:8271";

/// The first lines of the licence.
inline constexpr const char* kLegalNotice =
    "MIT License\n\nCopyright (c) 2026 Corvane\n\nPermission is hereby granted, free of charge, to "
    "any person obtaining a copy of this software and associated documentation files (the "
    "\"Software\"), to deal in the Software without restriction.";

}  // namespace clb::product
