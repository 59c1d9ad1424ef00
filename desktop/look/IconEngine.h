// Draws the program's pictures in the desktop's colours.
#pragma once
#include <QIconEngine>

namespace clb {

/// Draws one of the program's pictures in the colours of the desktop. The few colours of the
/// drawing are replaced by ones that stand out from the palette's background, so that one drawing
/// serves light and dark. It always draws from the vectors, in device pixels.
class IconEngine : public QIconEngine {
public:
    /// Name of a drawing below :/icons, without its extension.
    /// inMenu: it is drawn on the highlight while its line is the current one.
    explicit IconEngine(QString name, bool inMenu = false) : name_(std::move(name)), inMenu_(inMenu)
    {
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
               QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode asked, QIcon::State state,
                         qreal scale) override;
    [[nodiscard]] QIconEngine* clone() const override { return new IconEngine(name_, inMenu_); }
    [[nodiscard]] QString key() const override { return QStringLiteral("ledgerbook"); }
    bool isNull() override { return false; }

private:
    QString name_;
    bool inMenu_;
};

}  // namespace clb
