#include "desktop/help/HelpStyle.h"

#include <QFont>
#include <QRegularExpression>

#include "desktop/look/GridColors.h"

namespace clb::help_style {

namespace {

/// Of the toolkit's subset of CSS. Borders of paragraphs are not part of it.
constexpr const char* kSheet = R"(
body { color: {text}; line-height: 125%; }
p { margin-top: 6px; margin-bottom: 8px; }
li { margin-bottom: 3px; }
h1 { font-size: x-large; margin-top: 0px; margin-bottom: 12px; }
h2 { font-size: large; margin-top: 22px; margin-bottom: 6px; color: {accent}; }
h3 { font-size: medium; margin-top: 14px; margin-bottom: 4px; }
a { color: {link}; text-decoration: underline; }
table { margin-top: 6px; margin-bottom: 12px; border-collapse: collapse; }
th { color: {quiet}; text-align: left; padding: 3px 12px 5px 0px; border-bottom: 1px solid {frame}; }
td { padding: 5px 12px 5px 0px; border-bottom: 1px solid {line}; }
kbd { font-family: "{font}"; background-color: {side}; }
code { background-color: {side}; }
pre { background-color: {side}; margin-top: 8px; margin-bottom: 12px; }
.note { background-color: {note}; margin-top: 10px; margin-bottom: 10px; }
.picture { line-height: 100%; margin-top: 12px; margin-bottom: 12px; }
.around { margin-top: 28px; }
)";

}  // namespace

QString Sheet(const QPalette& palette, const QFont& font)
{
    const GridColors colors(palette);
    const std::pair<const char*, QString> values[] = {
        {"{text}", colors.text.name()},   {"{quiet}", colors.dimText.name()},
        {"{link}", colors.link.name()},   {"{accent}", Readable(colors.accent, colors.base).name()},
        {"{frame}", colors.frame.name()}, {"{line}", colors.line.name()},
        {"{side}", colors.header.name()}, {"{note}", colors.group.name()},
        {"{font}", font.family()},
    };
    QString sheet = QString::fromLatin1(kSheet);
    for (const auto& [name, value] : values)
        sheet.replace(QLatin1String(name), value);
    return sheet;
}

QString Body(const QByteArray& page)
{
    static const QRegularExpression contents(QStringLiteral("<nav\\b.*?</nav>|<link\\b[^>]*>"),
                                             QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression picture(QStringLiteral("(<img\\b[^>]*>)"));
    static const QRegularExpression around(QStringLiteral("(rel=\"prev\">[^<]*</a>)\\s*(?=<a\\b)"));
    // A picture in a paragraph of its own: the height of its line is not that of a line of text.
    // The toolkit would make the first column of a table as wide as its longest line.
    return QString::fromUtf8(page)
        .remove(contents)
        .replace(picture, QStringLiteral("<p class=\"picture\">\\1</p>"))
        .replace(around, QStringLiteral("\\1 &nbsp; &nbsp; "))
        .replace(QStringLiteral("<tr><th>"), QStringLiteral("<tr><th width=\"30%\">"));
}

}  // namespace clb::help_style
