#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <set>

#include "base/Money.h"
#include "import/StatementFile.h"
#include "tests/support/Books.h"
#include "tests/support/TestNames.h"

// Imports every statement of the folder named by CLB_STATEMENTS into fresh books, each with a new
// account, and compares the result with the folder's expected.json.

namespace clb {

using nlohmann::json;

namespace {

namespace fs = std::filesystem;

const fs::path& Folder()
{
    static const fs::path folder = [] {
        const char* name = std::getenv("CLB_STATEMENTS");
        return fs::path(name ? name : "");
    }();
    return folder;
}

const json& Expected()
{
    static const json expected = [] {
        std::ifstream file(Folder() / "expected.json");
        return json::parse(file, nullptr, false);
    }();
    return expected;
}

std::vector<std::string> FilesThat(const std::function<bool(const json&)>& fit)
{
    std::vector<std::string> names;
    if (!Expected().is_object())
        return names;
    for (const auto& [name, entry] : Expected().items())
        if (fit(entry))
            names.push_back(name);
    return names;
}

/// Files whose transactions carry the bank's identifiers.
bool HoldsMarkup(const json& entry)
{
    return entry.at("kind") != "QIF" && entry.at("accepted");
}

class StatementFolderTest : public ::testing::TestWithParam<std::string> {
protected:
    StatementFolderTest()
    {
        // A person who imported from the folder has left the file repaired and its original beside
        // it.
        const fs::path original = Folder() / (GetParam() + ".org");
        fs::copy_file(fs::exists(original) ? original : Folder() / GetParam(), path_);
        fs::permissions(path_, fs::perms::owner_all);
        books_.files.answers.push_back(path_);
        books_.modal.steps.push_back([](Form& form) {
            dynamic_cast<TextBox&>(*form.Find("txtDescription")).Text("Imported");
            form.DefaultButton()->Press();
        });
        books_.window.menus.Find("mnuF_Import")->Press();
    }

    /// One text of the result; null for none.
    json Text(const std::string& select)
    {
        const std::vector<std::string> rows = books_.Rows(select);
        return rows.empty() || rows.front().empty() ? json() : json(rows.front());
    }
    json Number(const std::string& select) { return json(std::stoi(books_.One(select))); }

    /// The first or last row in the given order, with the fields of the file's description.
    json Row(const std::string& order)
    {
        Recordset row;
        books_.window.Data().Fill(
            row,
            "SELECT TOP 1 Amount, Category, CheckID, Description, FITID, "
            "PayeeName AS Notes, Period, PostDate, Year FROM Trans ORDER BY " +
                order,
            true);
        if (row.AtEnd())
            return json();
        json fields;
        for (std::size_t at = 0; at < row.Fields().size(); ++at) {
            const Field& field = row.Fields()[at];
            if (field.type == FieldType::Long)
                fields[field.name] = ToLong(row.Get(at));
            else
                fields[field.name] = ToText(row.Get(at));
        }
        return fields;
    }

    /// The description's row with its amount written in the program's way.
    static json Plain(json row)
    {
        if (row.is_object())
            row["Amount"] = Money::Parse(row.at("Amount").get<std::string>()).ToText();
        return row;
    }
    static std::int32_t Kind()
    {
        const json& kind = Expected().at(GetParam()).at("kind");
        return kind == "OFX" ? 2 : kind == "QIF" ? 3 : 0;
    }
    /// The first or last row, with the fields that the description has.
    json RowLike(const json& described, const std::string& order)
    {
        json row = Row(order);
        if (described.is_object() && !described.contains("FITID"))
            row.erase("FITID");
        return row;
    }
    static Money Amount(const json& text) { return Money::Parse(text.get<std::string>()); }

    /// The message that the description requires, as a list of the boxes shown.
    std::vector<FakeMessageBox::Box> ExpectedBoxes()
    {
        const json& expected = Expected().at(GetParam());
        if (!expected.at("accepted"))
            return {{"Invalid file format.", 16, "Corvane Ledgerbook"}};
        if (expected.at("kind") == "QIF" && expected.contains("message"))
            return {{expected["message"], 48, "Corvane Ledgerbook"}};
        if (expected.at("error").is_null())
            return {};
        const std::string working = expected["error"].at("working_text");
        return {
            {"Invalid data was found while importing:\n" + working + "\n" + ReadStatement(path_),
             48, "Corvane Ledgerbook"}};
    }

    /// Identifiers of the file's transactions, in order.
    std::vector<std::string> Identifiers()
    {
        const std::string text = ReadStatement(path_);
        std::vector<std::string> identifiers;
        std::int32_t pos = 6;
        statement_tags::FindTag(pos, text, "<ACCTID>");
        for (;;) {
            const std::string block = statement_tags::GetTagBlock(pos, text, "STMTTRN");
            if (block.empty())
                return identifiers;
            identifiers.push_back(statement_tags::GetTagValue(1, block, "<FITID>"));
        }
    }

    Books books_;
    const std::string path_ = books_.folder.Path(GetParam());
};

TEST_P(StatementFolderTest, YieldsWhatItsDescriptionSays)
{
    const json& expected = Expected().at(GetParam());
    const bool accepted = expected.at("accepted");

    EXPECT_EQ(books_.messages.boxes, ExpectedBoxes());
    EXPECT_EQ(books_.window.window.Enabled(), accepted);
    EXPECT_EQ(modImport::DetectFileFormat(path_), Kind());

    const bool repaired = fs::exists(path_ + ".org");
    EXPECT_EQ(repaired, expected.at("line_endings_fixed"));
    EXPECT_EQ(fs::file_size(repaired ? path_ + ".org" : path_), expected.at("bytes"));

    EXPECT_EQ(Number("SELECT COUNT(1) AS [Count] FROM Trans"), expected.at("rows"));
    EXPECT_EQ(books_.Rows("SELECT DISTINCT FITID FROM Trans").size(), expected.at("fitids"));
    EXPECT_EQ(Number("SELECT COUNT(1) AS [Count] FROM Budget"), expected.at("budget_lines"));
    EXPECT_EQ(Text("SELECT MIN(PostDate) AS Day FROM Trans"), expected.at("min_date"));
    EXPECT_EQ(Text("SELECT MAX(PostDate) AS Day FROM Trans"), expected.at("max_date"));
    EXPECT_EQ(RowLike(expected.at("first_row"), "Sequence"), Plain(expected.at("first_row")));
    EXPECT_EQ(RowLike(expected.at("last_row"), "Sequence DESC"), Plain(expected.at("last_row")));

    Money sum;
    for (const std::string& amount : books_.Rows("SELECT Amount FROM Trans"))
        sum += Money::Parse(amount);
    EXPECT_EQ(sum, Amount(expected.at("sum")));
}

TEST_P(StatementFolderTest, IsImportedIntoTheAccountThatItNames)
{
    const json& expected = Expected().at(GetParam());

    EXPECT_EQ(Text("SELECT AccountID FROM Account"), expected.value("account_id", json()));
    if (expected.at("rows") == 0)
        return;
    EXPECT_EQ(Text("SELECT DISTINCT AccountID FROM Trans"), expected.at("account_id"));
    EXPECT_EQ(Money::Parse(books_.One("SELECT CurrentBalance FROM Account")),
              Amount(expected.at("sum")));
}

class ReadStatementTest : public StatementFolderTest {};

TEST_P(ReadStatementTest, SkipsItsDuplicatesOnly)
{
    const json& expected = Expected().at(GetParam());
    const std::vector<std::string> identifiers = Identifiers();
    const std::size_t distinct = std::set(identifiers.begin(), identifiers.end()).size();

    EXPECT_EQ(identifiers.size(), expected.at("blocks"));
    EXPECT_EQ(distinct, expected.at("fitids_in_file"));
    if (expected.at("error").is_null() && !expected.at("account_id").is_null()) {
        EXPECT_EQ(identifiers.size() - expected.at("duplicates_skipped").get<std::size_t>(),
                  expected.at("rows"));
        EXPECT_EQ(distinct, expected.at("rows"));
    }
}

std::string NameOf(const ::testing::TestParamInfo<std::string>& test)
{
    return TestName(test.param);
}

INSTANTIATE_TEST_SUITE_P(Files, StatementFolderTest,
                         ::testing::ValuesIn(FilesThat([](const json&) { return true; })), NameOf);
INSTANTIATE_TEST_SUITE_P(Files, ReadStatementTest, ::testing::ValuesIn(FilesThat(HoldsMarkup)),
                         NameOf);

}  // namespace
}  // namespace clb
