#include "desktop/look/IconEngine.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QSvgRenderer>
#include <utility>

#include "desktop/look/Colors.h"

namespace clb {

namespace {

// The colours of the drawings. Other colours, such as those of the program's own icon, stay.
constexpr const char* kInk = "#404a52";
constexpr const char* kBlue = "#2b78b8";
constexpr const char* kGreen = "#2c8f5c";
constexpr const char* kRed = "#c6443a";
constexpr const char* kViolet = "#7a5bb5";
constexpr double kLeastContrast = 4.5;

QByteArray Recolored(QByteArray drawing, QIcon::Mode mode)
{
    const QPalette palette = QApplication::palette();
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor onHighlight = palette.color(QPalette::Active, QPalette::HighlightedText);
    const auto put = [&](const char* own, const QColor& color) {
        const QColor shown = mode == QIcon::Disabled   ? Mix(text, ground, 0.35)
                             : mode == QIcon::Selected ? onHighlight
                                                       : color;
        drawing.replace(own, shown.name().toLatin1());
    };
    put(kInk, Mix(text, ground, 0.8));
    // The tree and the lists draw them on the ground of texts.
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    for (const char* own : {kBlue, kGreen, kRed, kViolet})
        put(own, Readable(Readable(QColor(own), ground, kLeastContrast), base, kLeastContrast));
    return drawing;
}

/// Whether the style draws the current line of a menu on the highlight. Others have their own ways.
bool HighlightsMenus()
{
    return QApplication::style()->name() == QLatin1String("fusion");
}

QByteArray Drawing(const QString& name, QIcon::Mode mode)
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? Recolored(file.readAll(), mode) : QByteArray();
}

}  // namespace

void IconEngine::paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    QPixmap picture = scaledPixmap((QSizeF(place.size()) * scale).toSize(), mode, state, scale);
    picture.setDevicePixelRatio(scale);
    painter->drawPixmap(place.topLeft(), picture);
}

QPixmap IconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

QPixmap IconEngine::scaledPixmap(const QSize& size, QIcon::Mode asked, QIcon::State /*state*/,
                                 qreal /*scale*/)
{
    const bool current = inMenu_ && asked == QIcon::Active && HighlightsMenus();
    const QIcon::Mode mode = current ? QIcon::Selected : asked;
    const QPalette palette = QApplication::palette();
    const QString key = QStringLiteral("ledgerbook-%1-%2x%3-%4-%5-%6-%7")
                            .arg(name_)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(mode)
                            .arg(palette.color(QPalette::Active, QPalette::HighlightedText).rgb())
                            .arg(palette.color(QPalette::Active, QPalette::Window).rgb())
                            .arg(palette.color(QPalette::Active, QPalette::WindowText).rgb());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    QImage canvas(size, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    QSvgRenderer(Drawing(name_, mode)).render(&painter);
    painter.end();
    picture = QPixmap::fromImage(std::move(canvas));
    QPixmapCache::insert(key, picture);
    return picture;
}

}  // namespace clb
