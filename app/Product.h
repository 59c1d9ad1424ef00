#pragma once
#include <cstdint>

namespace clb::product {

/// The program's name in captions and messages.
inline constexpr const char* Title = "Corvane Ledgerbook";
inline constexpr std::int32_t Major = CLB_VERSION_MAJOR;
inline constexpr std::int32_t Minor = CLB_VERSION_MINOR;
inline constexpr std::int32_t Revision = CLB_VERSION_REVISION;

/// The maker's pages.
inline constexpr const char* HomePage = "https://corvane.example/";
inline constexpr const char* TutorialPage = "https://corvane.example/ledgerbook/tutorial";

/// Where quotes are asked for when nothing else is set: the local service of "clb quote-server".
inline constexpr const char* QuoteService = "http://127.0.0.1:8271";

/// The first lines of the licence.
inline constexpr const char* LegalNotice =
    "MIT License\n\nCopyright (c) 2026 Corvane\n\nPermission is hereby granted, free of charge, to "
    "any person obtaining a copy of this software and associated documentation files (the "
    "\"Software\"), to deal in the Software without restriction.";

}  // namespace clb::product
