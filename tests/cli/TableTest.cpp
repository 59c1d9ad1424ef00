#include <gtest/gtest.h>

#include <sstream>

#include "cli/Table.h"

namespace clb {
namespace {

std::string Printed(const Table& table)
{
    std::ostringstream out;
    table.Print(out);
    return out.str();
}

TEST(TableTest, NumbersAreAlignedRight)
{
    Table table;
    table.AddColumn("Description", false);
    table.AddColumn("Amount", true);

    table.AddRow({"Rent", "-1,200.00"});
    table.AddRow({"Caf\xC3\xA9", "4.50"});

    EXPECT_EQ(Printed(table),
              "Description     Amount\n"
              "-----------  ---------\n"
              "Rent         -1,200.00\n"
              "Caf\xC3\xA9              4.50\n");
}

TEST(TableTest, ALineGoesAcrossAllColumns)
{
    Table table;
    table.AddColumn("A", false);

    table.AddLine("Household (2 items)");
    table.AddRow({"x"});

    EXPECT_EQ(Printed(table), "A\n-\nHousehold (2 items)\nx\n");
}

TEST(TableTest, AStatementCannotSendCommandsToTheTerminal)
{
    Table table;
    table.AddColumn("A", false);

    table.AddRow({"red \x1B[31m\n alarm\x7F!"});

    EXPECT_EQ(Printed(table), "A\n------------------\nred  [31m  alarm !\n");
}

// A terminal obeys control characters, and a book may come from somebody else.
TEST(TableTest, WhatATerminalWouldObeyIsNotPrinted)
{
    EXPECT_EQ(Printable("a\x1b[2Jb\xC2\x9B"
                        "c\nd"),
              "a [2Jb c\nd");
    EXPECT_EQ(Printable("caf\xE9 \xC3\xA9\xF0\x9F"), "caf? \xC3\xA9??");
}

}  // namespace
}  // namespace clb
