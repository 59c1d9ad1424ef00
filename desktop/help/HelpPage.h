// A page of the manual.
#pragma once
#include <QTextBrowser>
#include <QUrl>
#include <functional>
#include <vector>

namespace clb {

/// Shows a page of the manual in the desktop's colours. Pictures and lines are never wider than the
/// view. Links to other pages and to places in a page work; addresses of the web are handed on.
class HelpPage : public QTextBrowser {
public:
    using OpenAddress = std::function<void(const QString& address)>;
    HelpPage(OpenAddress open, QWidget* parent);

    /// Whether the page can be read.
    [[nodiscard]] static bool Readable(const QUrl& page);
    /// Shows a page from its beginning or from the place that the fragment of the URL names.
    void Show(const QUrl& page);
    /// Selects the next place of the text, after the selected one or before it; from the other end
    /// of the page if there is none. Returns false if the page does not contain the text.
    bool FindText(const QString& text, bool backward);
    /// The same for a text that grows while it is typed: it may also begin where the selection
    /// begins.
    bool FindTyped(const QString& text);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void Follow(const QUrl& link);
    void Arrive(const QUrl& page);
    void Dress();
    void FitToWidth();
    void FitPictures(int room);
    [[nodiscard]] std::vector<QTextCursor> Pictures() const;

    OpenAddress open_;
    QUrl arrived_;  // the shown page
};

}  // namespace clb
