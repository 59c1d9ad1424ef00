// Finds the desktop's web browser and opens pages in it.
#pragma once
#include <QStringList>
#include <QUrl>
#include <optional>

namespace clb {

/// A web browser with a window. Browsers that need a terminal do not count, because the program has
/// none.
struct Browser {
    /// The program and its arguments, with "%u" in place of the address.
    QStringList command;
    /// The desktop opens pages in it. Otherwise it was only found, and is started directly.
    bool desktops = false;
    /// It runs in a sandbox, in which it cannot read files of the program's folder.
    bool sandboxed = false;

    /// Finds the browser that opens pages of a type, such as "x-scheme-handler/http": the one that
    /// the desktop has for it, else the one that $BROWSER names, else a well-known one that is
    /// installed. Reads a few small files and starts nothing.
    [[nodiscard]] static std::optional<Browser> For(const QString& type);
    /// Starts it. Returns false if that failed.
    [[nodiscard]] bool Open(const QUrl& page) const;
};

/// The types of pages.
namespace page_type {
inline constexpr const char* kWeb = "x-scheme-handler/http";
inline constexpr const char* kFile = "text/html";
}  // namespace page_type

}  // namespace clb
