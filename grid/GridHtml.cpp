#include "grid/GridHtml.h"

#include <algorithm>

namespace clb {
namespace {

// Simple document viewers must show it as well as browsers do, so the table has its own attributes
// and the classes only refine it.
constexpr const char* kHead =
    "<!DOCTYPE html>\n"
    "<html lang=\"en\">\n"
    "<head>\n"
    "<meta charset=\"utf-8\">\n"
    "<style>\n"
    "body { font-family: sans-serif; font-size: 9pt; color: #000000; }\n"
    "h1 { font-size: 15pt; margin-top: 0px; margin-bottom: 6px; }\n"
    "p.subtitle { color: #555555; margin-top: 3px; margin-bottom: 12px; }\n"
    "table { border-collapse: collapse; }\n"
    "th { background-color: #e6e6e6; border-bottom: 1px solid #888888; }\n"
    "td { border-bottom: 1px solid #dddddd; }\n"
    "td.negative { color: #b3261e; }\n"
    "td.group { background-color: #eef3f8; font-weight: bold; }\n"
    "td.footer { background-color: #f2f2f2; }\n"
    "td.total { border-top: 2px solid #888888; font-weight: bold; }\n"
    "thead { display: table-header-group; }\n"
    "tr { page-break-inside: avoid; }\n"
    "</style>\n";

std::string Escaped(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            case '\r': break;
            case '\n': out += "<br>"; break;
            default: out += c;
        }
    }
    return out;
}

class Writer {
public:
    explicit Writer(GridComponent& grid) : grid_(grid)
    {
        for (const std::int32_t column : grid.Columns().Displayed())
            if (!grid.Columns().Item(column).hidden)
                shown_.push_back(column);
    }

    std::string Write(const GridPage& page)
    {
        out_ = kHead;
        out_ += "<title>" + Escaped(page.title) + "</title>\n</head>\n<body>\n";
        out_ += "<h1>" + Escaped(page.title) + "</h1>\n";
        if (!page.subtitle.empty())
            out_ += "<p class=\"subtitle\">" + Escaped(page.subtitle) + "</p>\n";
        out_ += "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\">\n";
        Captions();
        out_ += "<tbody>\n";
        for (std::size_t row = 1; row <= grid_.Rows().Count(); ++row)
            Row(row);
        Totals(page);
        out_ += "</tbody>\n</table>\n</body>\n</html>\n";
        return std::move(out_);
    }

private:
    void Captions()
    {
        out_ += "<thead>\n<tr>";
        for (const std::int32_t column : shown_) {
            const GridColumn& shown = grid_.Columns().Item(column);
            const char* side = shown.HeadingStandsRight() ? "right" : "left";
            out_ += std::string("<th align=\"") + side + "\">" + Escaped(shown.caption) + "</th>";
        }
        out_ += "</tr>\n</thead>\n";
    }
    void Row(std::size_t row)
    {
        switch (grid_.Rows().Kind(row)) {
            case GridRowKind::GroupHeading: Across("group", grid_.Rows().HeadingText(row)); break;
            case GridRowKind::GroupFooter: Across("footer", grid_.FooterText(row)); break;
            case GridRowKind::Data: Cells(row); break;
            case GridRowKind::NewRow: break;
        }
    }
    void Across(const char* kind, const std::string& text)
    {
        out_ += "<tr><td class=\"" + std::string(kind) + "\" colspan=\"" +
                std::to_string(shown_.size()) + "\">" + Escaped(text) + "</td></tr>\n";
    }
    void Cells(std::size_t row)
    {
        out_ += "<tr>";
        for (const std::int32_t column : shown_) {
            const GridColumn& shown = grid_.Columns().Item(column);
            const std::string text = grid_.CellText(row, column);
            out_ += "<td";
            if (shown.StandsRight() && text.starts_with('-'))
                out_ += " class=\"negative\"";
            if (shown.StandsRight())
                out_ += " align=\"right\"";
            out_ += ">" + Escaped(text) + "</td>";
        }
        out_ += "</tr>\n";
    }
    void Totals(const GridPage& page)
    {
        if (page.totals.empty())
            return;
        const auto first = std::find(shown_.begin(), shown_.end(), page.totals.front().column);
        const auto before = first - shown_.begin();
        out_ += "<tr>";
        if (before > 0)
            out_ += "<td class=\"total\" align=\"right\" colspan=\"" + std::to_string(before) +
                    "\">" + Escaped(page.totalLabel) + "</td>";
        for (auto column = first; column != shown_.end(); ++column)
            out_ +=
                "<td class=\"total\" align=\"right\">" + Escaped(AmountOf(page, *column)) + "</td>";
        out_ += "</tr>\n";
    }
    static std::string AmountOf(const GridPage& page, std::int32_t column)
    {
        for (const GridPage::Total& total : page.totals)
            if (total.column == column)
                return total.amount;
        return {};
    }

    GridComponent& grid_;
    std::vector<std::int32_t> shown_;
    std::string out_;
};

}  // namespace

std::string GridHtml(GridComponent& grid, const GridPage& page)
{
    return Writer(grid).Write(page);
}

}  // namespace clb
