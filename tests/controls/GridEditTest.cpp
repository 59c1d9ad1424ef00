// Editing: a cell, then its row, then the source.

#include "controls/GridComponent.h"
#include "tests/support/GridFixture.h"

namespace clb {
namespace {

class GridEditTest : public testing::Test {
protected:
    GridEditTest() : grid_("Grid", dates_)
    {
        FillShop(grid_.Array());
        NoteEvents();
    }
    void NoteEvents()
    {
        const auto cell = [](std::int32_t row, std::int32_t column) {
            return " " + std::to_string(row) + " " + std::to_string(column);
        };
        grid_.BeforeEdit().connect(
            [=, this](std::int32_t row, std::int32_t column, std::int16_t key, bool& cancel) {
                events_.Note("BeforeEdit" + cell(row, column) + " " + std::to_string(key));
                cancel = cancelEdit_;
            });
        grid_.AfterEdit().connect([=, this](std::int32_t row, std::int32_t column) {
            events_.Note("AfterEdit" + cell(row, column));
        });
        grid_.RowColChange().connect([=, this](std::int32_t row, std::int32_t column) {
            events_.Note("RowColChange" + cell(row, column));
        });
        grid_.BeforeUpdate().connect([this](bool& cancel) {
            events_.Note("BeforeUpdate");
            cancel = cancelUpdate_;
        });
        grid_.AfterUpdate().connect([this] { events_.Note("AfterUpdate"); });
        grid_.BeforeDelete().connect([this](bool& cancel) {
            events_.Note("BeforeDelete");
            cancel = cancelDelete_;
        });
        grid_.AfterDelete().connect([this] { events_.Note("AfterDelete"); });
        grid_.UpdateRefused().connect([this] { events_.Note("UpdateRefused"); });
    }
    /// Types a text into a cell of the current row and ends its edit.
    bool Type(std::int32_t column, const std::string& text)
    {
        grid_.Col(column);
        if (!grid_.Editing(true))
            return false;
        grid_.EditText(text);
        return grid_.EndEdit();
    }
    std::string Stored(std::size_t record, std::int32_t column)
    {
        return ToText(grid_.Array().At(record, static_cast<std::size_t>(column - 1)));
    }
    using Lines = std::vector<std::string>;

    IsoDateForm dates_;
    GridComponent grid_;
    GridEvents events_;
    bool cancelEdit_ = false;
    bool cancelUpdate_ = false;
    bool cancelDelete_ = false;
};

TEST_F(GridEditTest, ARowIsWrittenOnlyWhenItIsSaved)
{
    EXPECT_TRUE(Type(shop::Name, "Pears"));
    EXPECT_TRUE(grid_.Dirty());
    EXPECT_EQ(Stored(0, shop::Name), "Apples");

    EXPECT_TRUE(grid_.Update());
    EXPECT_FALSE(grid_.Dirty());
    EXPECT_EQ(Stored(0, shop::Name), "Pears");
}

TEST_F(GridEditTest, TheEventsOfAnEditAndASaveComeInOrder)
{
    Type(shop::Price, "4");
    EXPECT_EQ(events_.Take(), (Lines{"RowColChange 1 3", "BeforeEdit 1 3 0", "AfterEdit 1 3"}));

    grid_.MoveTo(2, shop::Price);
    EXPECT_EQ(events_.Take(), (Lines{"BeforeUpdate", "AfterUpdate", "RowColChange 2 3"}));
}

TEST_F(GridEditTest, TheKeyThatBeganTheEditIsReported)
{
    grid_.MoveTo(1, shop::Name);
    events_.Take();

    grid_.BeginEdit('a');

    EXPECT_EQ(events_.Take(), Lines{"BeforeEdit 1 2 97"});
}

TEST_F(GridEditTest, AHandlerCanForbidTheEdit)
{
    cancelEdit_ = true;

    EXPECT_FALSE(Type(shop::Name, "Pears"));

    EXPECT_FALSE(grid_.Editing());
    EXPECT_FALSE(grid_.Dirty());
}

TEST_F(GridEditTest, ReadOnlyHiddenAndCounterCellsCannotBeEdited)
{
    grid_.Columns().Item(shop::Price).readOnly = true;
    grid_.Columns().Item(shop::Count).hidden = true;

    EXPECT_FALSE(Type(shop::Price, "1"));
    EXPECT_FALSE(Type(shop::Count, "1"));
    EXPECT_FALSE(Type(shop::Key, "1"));
}

TEST_F(GridEditTest, MovingAwayEndsTheEditAndSavesTheRow)
{
    grid_.Col(shop::Name);
    grid_.BeginEdit(0);
    grid_.EditText("Pears");

    EXPECT_TRUE(grid_.MoveTo(3, shop::Name));

    EXPECT_FALSE(grid_.Editing());
    EXPECT_EQ(Stored(0, shop::Name), "Pears");
}

TEST_F(GridEditTest, MovingWithinTheRowSavesNothing)
{
    Type(shop::Name, "Pears");

    EXPECT_TRUE(grid_.MoveTo(1, shop::Price));

    EXPECT_TRUE(grid_.Dirty());
    EXPECT_EQ(Stored(0, shop::Name), "Apples");
}

TEST_F(GridEditTest, EscapeGivesUpTheCellAndAgainTheRow)
{
    Type(shop::Price, "4");
    grid_.Col(shop::Name);
    grid_.BeginEdit(0);
    grid_.EditText("Pears");

    grid_.Escape();
    EXPECT_FALSE(grid_.Editing());
    EXPECT_TRUE(grid_.Dirty());
    EXPECT_EQ(grid_.CellText(1, shop::Name), "Apples");
    EXPECT_EQ(grid_.CellText(1, shop::Price), "4.00");

    grid_.Escape();
    EXPECT_FALSE(grid_.Dirty());
    EXPECT_EQ(grid_.CellText(1, shop::Price), "2.00");
}

TEST_F(GridEditTest, AnEditWithoutTypingChangesNothing)
{
    grid_.Array().Save(0, {{2, Money::FromScaled(12345)}});
    grid_.RefetchRows();
    grid_.Col(shop::Price);
    grid_.BeginEdit(0);
    EXPECT_EQ(grid_.EditText(), "1.2345") << "not the rounded amount of the cell";

    EXPECT_TRUE(grid_.EndEdit());

    EXPECT_FALSE(grid_.Dirty());
}

struct Refused {
    std::int32_t column;
    const char* text;
    const char* why;
};

class RefusedTextTest : public GridEditTest, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedTextTest, StaysInItsCellWithAReason)
{
    EXPECT_FALSE(Type(GetParam().column, GetParam().text));

    EXPECT_TRUE(grid_.Editing());
    EXPECT_TRUE(grid_.Marked());
    EXPECT_EQ(grid_.EditText(), GetParam().text);
    EXPECT_EQ(grid_.Refusal(), GetParam().why);
    EXPECT_FALSE(grid_.Dirty());
    EXPECT_FALSE(grid_.MoveTo(2, 1)) << "the cell keeps the user";
    EXPECT_FALSE(grid_.Update());
}

INSTANTIATE_TEST_SUITE_P(
    ByType, RefusedTextTest,
    testing::Values(
        Refused{shop::Price, "cheap", "Please enter a number, for example 1,234.50."},
        Refused{shop::Price, "12,5", "Please enter a number, for example 1,234.50."},
        Refused{shop::Price, "1234,567.00", "Please enter a number, for example 1,234.50."},
        Refused{shop::Price, "-530,86", "Please enter a number, for example 1,234.50."},
        Refused{shop::Price, "-", "Please enter a number, for example 1,234.50."},
        Refused{shop::Price, "1 2", "Please enter a number, for example 1,234.50."},
        Refused{shop::Price, "99999999999999999999", "This number is too large for the column."},
        Refused{shop::Price, "922337203685477.5808", "This number is too large for the column."},
        Refused{shop::Price, "1e30", "This number is too large for the column."},
        Refused{shop::Count, "4000000000", "This number is too large for the column."},
        Refused{shop::Weight, "light", "Please enter a number, for example 1,234.50."},
        Refused{shop::Day, "2006-02-30", "Please enter a date, for example 2026-11-03 or Nov 3."},
        Refused{shop::Day, "2006-02-29", "Please enter a date, for example 2026-11-03 or Nov 3."},
        Refused{shop::Day, "15/05/2006", "Please enter a date, for example 2026-11-03 or Nov 3."},
        Refused{shop::Day, "2006-13-01", "Please enter a date, for example 2026-11-03 or Nov 3."},
        Refused{shop::Day, "5 Marzipan", "Please enter a date, for example 2026-11-03 or Nov 3."},
        Refused{shop::Name, "elevenchars", "Please enter at most 10 characters."}));

struct Accepted {
    std::int32_t column;
    const char* text;
    const char* value;  ///< as a plain text
};

class AcceptedTextTest : public GridEditTest, public testing::WithParamInterface<Accepted> {};

TEST_P(AcceptedTextTest, BecomesItsValue)
{
    EXPECT_TRUE(Type(GetParam().column, GetParam().text));

    EXPECT_EQ(ToText(grid_.ColumnValue(GetParam().column)), GetParam().value);
    EXPECT_FALSE(grid_.Editing());
}

INSTANTIATE_TEST_SUITE_P(
    ByType, AcceptedTextTest,
    testing::Values(Accepted{shop::Price, "45.5", "45.5"},
                    Accepted{shop::Price, "1,234.50", "1234.5"}, Accepted{shop::Price, "(5)", "-5"},
                    Accepted{shop::Price, "5-", "-5"}, Accepted{shop::Price, "$7", "7"},
                    Accepted{shop::Price, " 8 ", "8"}, Accepted{shop::Price, "1e3", "1000"},
                    Accepted{shop::Price, "1.00005", "1"},
                    Accepted{shop::Price, "1.00015", "1.0002"},
                    Accepted{shop::Price, "922337203685477.5807", "922337203685477.5807"},
                    Accepted{shop::Day, "2006-03-05", "2006-03-05"},
                    Accepted{shop::Day, "2004-02-29", "2004-02-29"},
                    Accepted{shop::Day, "2006/3/5", "2006-03-05"},
                    Accepted{shop::Day, "03/05/2006", "2006-03-05"},
                    Accepted{shop::Day, "5 March 2006", "2006-03-05"},
                    Accepted{shop::Weight, "0.125", "0.125"}, Accepted{shop::Weight, "-3", "-3"},
                    Accepted{shop::Weight, "1,000.5", "1000.5"},
                    Accepted{shop::Name, "  a  b  ", "  a  b  "},
                    Accepted{shop::Name, "one\ntwo", "one\ntwo"}, Accepted{shop::Name, "", ""}));

TEST_F(GridEditTest, TypedDatesReferToTheShownMonth)
{
    grid_.TypeDates({[] { return DateContext{*Date::Of(2026, 3, 14, 9), {2026, 2}}; }, false});

    EXPECT_TRUE(Type(shop::Day, "3"));
    EXPECT_EQ(grid_.CellText(1, shop::Day), "2026-02-03");
    EXPECT_TRUE(Type(shop::Day, "5 March"));
    EXPECT_EQ(grid_.CellText(1, shop::Day), "2026-03-05");
    EXPECT_TRUE(Type(shop::Day, "t"));
    EXPECT_EQ(grid_.CellText(1, shop::Day), "2026-03-14");
}

TEST_F(GridEditTest, ACalculationBecomesItsResult)
{
    EXPECT_TRUE(Type(shop::Price, "12.50+3*2"));
    EXPECT_EQ(grid_.CellText(1, shop::Price), "18.50");
    EXPECT_FALSE(Type(shop::Price, "1/0"));
    EXPECT_EQ(grid_.Refusal(), "This divides by zero.");
}

TEST_F(GridEditTest, WhatATextWillBeIsKnownWhileItIsTyped)
{
    grid_.TypeDates({[] { return DateContext{*Date::Of(2026, 3, 14), {2026, 2}}; }, false});
    const auto understood = [this](std::int32_t column, const char* text) {
        grid_.Col(column);
        grid_.Editing(true);
        grid_.EditText(text);
        const std::string shown = grid_.Entry().Understood();
        grid_.CancelEdit();
        return shown;
    };

    EXPECT_EQ(understood(shop::Day, "3"), "2026-02-03");
    EXPECT_EQ(understood(shop::Day, "2026-02-03"), "") << "it says so already";
    EXPECT_EQ(understood(shop::Day, "soon"), "");
    EXPECT_EQ(understood(shop::Price, "12.50+3*2"), "18.50");
    EXPECT_EQ(understood(shop::Price, "12.5"), "");
    EXPECT_EQ(understood(shop::Name, "1+1"), "");
}

TEST(FixedFormTest, OnlyIsoDatesAndPlainNumbersAreTaken)
{
    const FixedForm form;
    const GridText texts(form);
    GridColumn column;
    const auto takes = [&](FieldType type, const char* text) {
        column.dataType = type;
        return texts.Read(text, column, {*Date::Of(2026, 3, 14), {2026, 3}}).value.has_value();
    };

    EXPECT_TRUE(takes(FieldType::Date, "2026-03-05"));
    for (const char* text : {"3", "t", "5 March", "03/05/2006"})
        EXPECT_FALSE(takes(FieldType::Date, text)) << text;
    EXPECT_TRUE(takes(FieldType::Money, "1,234.50"));
    for (const char* text : {"1+1", "12,5"})
        EXPECT_FALSE(takes(FieldType::Money, text)) << text;
}

class OfferedDateTest : public GridEditTest {
protected:
    OfferedDateTest()
    {
        grid_.TypeDates({[] { return DateContext{*Date::Of(2026, 3, 14, 9), {2026, 2}}; }, true});
    }
    /// Begins a row and returns the text of its date cell in edit.
    std::string NewDate()
    {
        grid_.MoveToRowKey(Null());
        grid_.Col(shop::Day);
        grid_.Editing(true);
        return grid_.EditText();
    }
};

TEST_F(OfferedDateTest, ANewRowBeginsWithToday)
{
    EXPECT_EQ(NewDate(), "2026-03-14");
    EXPECT_TRUE(grid_.EndEdit());
    Type(shop::Name, "Plums");
    EXPECT_TRUE(grid_.Update());
    EXPECT_EQ(grid_.Array().Count(), 4U);
    EXPECT_EQ(Stored(3, shop::Day), "2026-03-14");
}

TEST_F(OfferedDateTest, TheDateTypedLastIsOfferedNext)
{
    NewDate();
    grid_.EditText("17");
    EXPECT_TRUE(grid_.Update());

    EXPECT_EQ(NewDate(), "2026-02-17");
}

TEST_F(OfferedDateTest, ARowWithNothingButAnOfferedDateIsNotSaved)
{
    const std::size_t before = grid_.Array().Count();
    NewDate();
    EXPECT_TRUE(grid_.MoveTo(1, shop::Name));

    EXPECT_EQ(grid_.Array().Count(), before);
    EXPECT_FALSE(grid_.Dirty());
}

TEST_F(OfferedDateTest, TheOfferTypedByHandIsAnEntry)
{
    const std::size_t before = grid_.Array().Count();
    NewDate();
    grid_.EditText("2026-03-14");
    EXPECT_TRUE(grid_.MoveTo(1, shop::Name));

    EXPECT_EQ(grid_.Array().Count(), before + 1);
}

TEST_F(OfferedDateTest, StoredRowsAreOfferedNothing)
{
    grid_.MoveTo(1, shop::Day);
    grid_.ColumnValue(shop::Day, Null());
    grid_.Editing(true);
    EXPECT_EQ(grid_.EditText(), "");
}

TEST_F(GridEditTest, TypingOnTakesTheMarkAway)
{
    Type(shop::Price, "cheap");

    grid_.EditText("5");

    EXPECT_FALSE(grid_.Marked());
    EXPECT_EQ(grid_.Refusal(), "");
    EXPECT_TRUE(grid_.EndEdit());
    EXPECT_EQ(grid_.CellText(1, shop::Price), "5.00");
}

TEST_F(GridEditTest, ATextMayFillItsColumnWithAnyCharacters)
{
    const std::string ten =
        "\xF0\x9F\x8D\x8E\xCE\xA9\xC3\xA9\xE8\xB4\xA6"
        "e\xCC\x81"
        "1234";

    EXPECT_TRUE(Type(shop::Name, ten));

    EXPECT_TRUE(grid_.Update());
    EXPECT_EQ(Stored(0, shop::Name), ten);
}

TEST_F(GridEditTest, AnEmptyTextEmptiesTheCell)
{
    Type(shop::Price, "  ");
    Type(shop::Day, "");
    Type(shop::Weight, "");
    Type(shop::Name, "");
    grid_.Update();

    EXPECT_EQ(grid_.Array().At(0, 1), Value(std::string()));
    EXPECT_TRUE(IsNull(grid_.Array().At(0, 2)));
    EXPECT_TRUE(IsNull(grid_.Array().At(0, 4)));
    EXPECT_TRUE(IsNull(grid_.Array().At(0, 6)));
}

TEST_F(GridEditTest, AChoiceTakesOnlyEntriesOfItsList)
{
    GridColumn& name = grid_.Columns().Item(shop::Name);
    name.popup = GridPopup{cell_control::kDropDown, 5, 0};
    name.valueItems = {{std::string("Bank"), "Bank"}, {std::string("Cash"), "Cash"}};

    EXPECT_TRUE(Type(shop::Name, "cash"));
    EXPECT_EQ(grid_.CellText(1, shop::Name), "Cash");

    EXPECT_FALSE(Type(shop::Name, "Gold"));
    EXPECT_EQ(grid_.Refusal(), "Please choose an entry of the list.");
    grid_.CancelEdit();

    EXPECT_TRUE(Type(shop::Name, ""));
    EXPECT_EQ(grid_.CellText(1, shop::Name), "");
}

// Symptom: an account got a type of only spaces, which has no view.
TEST_F(GridEditTest, BlanksInAChoiceEmptyTheCell)
{
    GridColumn& name = grid_.Columns().Item(shop::Name);
    name.popup = GridPopup{cell_control::kDropDown, 5, 0};
    name.valueItems = {{std::string("Bank"), "Bank"}};

    EXPECT_TRUE(Type(shop::Name, "  "));

    EXPECT_TRUE(IsEmpty(grid_.ColumnValue(shop::Name)));
}

TEST_F(GridEditTest, ACompletingListTakesNewTexts)
{
    GridColumn& name = grid_.Columns().Item(shop::Name);
    name.popup = GridPopup{cell_control::kComboBox, 5, 0};
    name.valueItems = {{std::string("Bank"), "Bank"}};

    EXPECT_TRUE(Type(shop::Name, "bank"));

    EXPECT_EQ(grid_.CellText(1, shop::Name), "bank");
}

TEST_F(GridEditTest, ANewRowJoinsAndTheNewRowsLineMovesOn)
{
    grid_.MoveTo(4, shop::Name);
    Type(shop::Name, "Dates");

    EXPECT_TRUE(grid_.Update());

    EXPECT_EQ(grid_.Rows().Count(), 5U);
    EXPECT_EQ(grid_.Row(), 4U);
    EXPECT_EQ(Stored(3, shop::Name), "Dates");
    EXPECT_EQ(grid_.Position(), 0);
}

TEST_F(GridEditTest, ANewRowInAFoldedGroupOpensIt)
{
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    grid_.Fold(1, true);
    grid_.MoveTo(grid_.Rows().NewRow(), shop::Name);
    Type(shop::Name, "Dates");
    Type(shop::Count, "5");

    EXPECT_TRUE(grid_.Update());

    EXPECT_FALSE(grid_.Rows().Folded(1));
    EXPECT_EQ(grid_.CellText(grid_.Row(), shop::Name), "Dates");
}

TEST_F(GridEditTest, ARefusedRowKeepsItsChangesAndThePlace)
{
    cancelUpdate_ = true;
    Type(shop::Name, "Pears");
    events_.Take();

    EXPECT_FALSE(grid_.MoveTo(2, shop::Name));

    EXPECT_EQ(events_.Take(), (Lines{"BeforeUpdate", "UpdateRefused"}));
    EXPECT_EQ(grid_.Row(), 1U);
    EXPECT_TRUE(grid_.Dirty());
    EXPECT_EQ(Stored(0, shop::Name), "Apples");
}

TEST_F(GridEditTest, FoldingSavesTheChangedRowFirst)
{
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    Type(shop::Name, "Pears");
    cancelUpdate_ = true;

    EXPECT_FALSE(grid_.Fold(1, true));
    EXPECT_FALSE(grid_.Rows().Folded(1));

    cancelUpdate_ = false;
    EXPECT_TRUE(grid_.Fold(1, true));
    EXPECT_EQ(Stored(0, shop::Name), "Pears");
}

// Symptom: the heading that was now at the old place was folded.
TEST_F(GridEditTest, TheHeadingIsFoundAlthoughTheSavedRowMovedIt)
{
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    Type(shop::Count, "2");

    EXPECT_TRUE(grid_.Fold(4, true));

    EXPECT_TRUE(grid_.Rows().Folded(grid_.Rows().OfGroup(GridRowKind::GroupHeading, "1")));
    EXPECT_FALSE(grid_.Rows().Folded(grid_.Rows().OfGroup(GridRowKind::GroupHeading, "2")));
}

TEST_F(GridEditTest, AGroupThatGoesWithTheSavedRowFoldsNoOther)
{
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    Type(shop::Count, "1");

    EXPECT_TRUE(grid_.Fold(1, true));

    EXPECT_FALSE(grid_.Rows().Folded(grid_.Rows().OfGroup(GridRowKind::GroupHeading, "1")));
}

TEST_F(GridEditTest, DeletingMakesTheNextRowCurrent)
{
    grid_.MoveTo(2, shop::Name);
    events_.Take();

    EXPECT_TRUE(grid_.Delete());

    EXPECT_EQ(events_.Take(), (Lines{"BeforeDelete", "AfterDelete", "RowColChange 2 2"}));
    EXPECT_EQ(grid_.CellText(2, shop::Name), "Cheese");
}

TEST_F(GridEditTest, AHandlerCanForbidTheDeletion)
{
    cancelDelete_ = true;

    EXPECT_FALSE(grid_.Delete());

    EXPECT_EQ(grid_.Array().Count(), 3U);
}

TEST_F(GridEditTest, TheNewRowCannotBeDeleted)
{
    grid_.MoveTo(4, 1);
    events_.Take();

    EXPECT_FALSE(grid_.Delete());

    EXPECT_TRUE(events_.Take().empty());
}

TEST_F(GridEditTest, TheWantedRowIsReachedAlthoughSavingMovedIt)
{
    // Symptom: a row that moved to another group moved the others, and the next one was hit.
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    Type(shop::Count, "2");
    const std::size_t bread = 5;
    ASSERT_EQ(grid_.CellText(bread, shop::Name), "Bread");

    EXPECT_TRUE(grid_.MoveTo(bread, shop::Name));

    EXPECT_EQ(ToText(grid_.ColumnValue(shop::Name)), "Bread");
}

TEST_F(GridEditTest, TheNewRowsLineIsReachedAlthoughSavingMovedIt)
{
    grid_.Groups().push_back({shop::Count});
    grid_.Regroup();
    Type(shop::Count, "2");

    grid_.MoveToRowKey(Null{});

    EXPECT_EQ(grid_.Position(), 1);
}

TEST_F(GridEditTest, MovingToTheCurrentCellRaisesNothing)
{
    grid_.MoveTo(2, shop::Name);
    events_.Take();

    EXPECT_TRUE(grid_.MoveTo(2, shop::Name));

    EXPECT_TRUE(events_.Take().empty());
}

}  // namespace
}  // namespace clb
