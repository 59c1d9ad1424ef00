// The names of a view's columns are in the order of its SELECT.

#include "data/ViewColumns.h"
#include "tests/data/StoreFixture.h"

namespace clb {
namespace {

class ViewColumnsTest : public StoreTest {
protected:
    /// The fields of a view's rows, in order.
    std::vector<std::string> FieldsOf(std::int32_t view)
    {
        shown_.view = view;
        shown_.type = "Bank";
        shown_.account = "1";
        std::vector<std::string> names;
        for (const Field& field : Store().GetRows().Fields())
            names.push_back(field.name);
        return names;
    }
    static std::string At(const std::vector<std::string>& fields, std::int32_t column)
    {
        return fields.at(static_cast<std::size_t>(column - 1));
    }
};

TEST_F(ViewColumnsTest, NetWorth)
{
    const auto fields = FieldsOf(vwNetWorth);

    EXPECT_EQ(At(fields, NetWorth::Description), "Description");
    EXPECT_EQ(At(fields, NetWorth::Type), "Type");
    EXPECT_EQ(At(fields, NetWorth::AccountID), "AccountID");
    EXPECT_EQ(At(fields, NetWorth::OpeningBalance), "OpeningBalance");
    EXPECT_EQ(At(fields, NetWorth::TotalBalance), "TotBalance");
    EXPECT_EQ(At(fields, NetWorth::Sequence), "Sequence");
    EXPECT_EQ(fields.size(), 6U);
}

TEST_F(ViewColumnsTest, Budget)
{
    const auto fields = FieldsOf(vwBudget);

    EXPECT_EQ(At(fields, Budget::Category), "Category");
    EXPECT_EQ(At(fields, Budget::Amount), "Amount");
    EXPECT_EQ(At(fields, Budget::Sequence), "Sequence");
    EXPECT_EQ(At(fields, Budget::Year), "Year");
    EXPECT_EQ(At(fields, Budget::Period), "Period");
    EXPECT_EQ(At(fields, Budget::CategoryGroup), "CategoryGroup");
    EXPECT_EQ(fields.size(), 6U);
}

TEST_F(ViewColumnsTest, AccountType)
{
    const auto fields = FieldsOf(vwAccountType);

    EXPECT_EQ(At(fields, AccountType::Description), "Description");
    EXPECT_EQ(At(fields, AccountType::AccountID), "AccountID");
    EXPECT_EQ(At(fields, AccountType::OpeningBalance), "OpeningBalance");
    EXPECT_EQ(At(fields, AccountType::TotalBalance), "TotBalance");
    EXPECT_EQ(At(fields, AccountType::Sequence), "Sequence");
    EXPECT_EQ(At(fields, AccountType::Type), "Type");
    EXPECT_EQ(fields.size(), 6U);
}

TEST_F(ViewColumnsTest, Register)
{
    const auto fields = FieldsOf(vwAccount);

    EXPECT_EQ(At(fields, Register::PostDate), "PostDate");
    EXPECT_EQ(At(fields, Register::Description), "Description");
    EXPECT_EQ(At(fields, Register::Amount), "Amount");
    EXPECT_EQ(At(fields, Register::CheckID), "CheckID");
    EXPECT_EQ(At(fields, Register::Category), "Category");
    EXPECT_EQ(At(fields, Register::Notes), "Notes");
    EXPECT_EQ(At(fields, Register::AccountID), "AccountID");
    EXPECT_EQ(At(fields, Register::Year), "Year");
    EXPECT_EQ(At(fields, Register::Period), "Period");
    EXPECT_EQ(At(fields, Register::Fitid), "FITID");
    EXPECT_EQ(At(fields, Register::Sequence), "Sequence");
    EXPECT_EQ(At(fields, Register::SubSequence), "SubSequence");
    EXPECT_EQ(fields.size(), 12U);
}

TEST_F(ViewColumnsTest, Holdings)
{
    const auto fields = FieldsOf(vwInvestment);

    EXPECT_EQ(At(fields, Holdings::StockSymbol), "StockSymbol");
    EXPECT_EQ(At(fields, Holdings::StockName), "StockName");
    EXPECT_EQ(At(fields, Holdings::PurchaseDate), "PurchaseDate");
    EXPECT_EQ(At(fields, Holdings::Quantity), "Quantity");
    EXPECT_EQ(At(fields, Holdings::PurchasePrice), "PurchasePrice");
    EXPECT_EQ(At(fields, Holdings::LastPrice), "LastPrice");
    EXPECT_EQ(At(fields, Holdings::Total), "Total");
    EXPECT_EQ(At(fields, Holdings::AccountID), "AccountID");
    EXPECT_EQ(At(fields, Holdings::Sequence), "Sequence");
    EXPECT_EQ(fields.size(), 9U);
}

TEST_F(ViewColumnsTest, Loans)
{
    const auto fields = FieldsOf(vwLoan);

    EXPECT_EQ(At(fields, Loans::Description), "Description");
    EXPECT_EQ(At(fields, Loans::OriginalAmount), "OriginalAmount");
    EXPECT_EQ(At(fields, Loans::PaidAmount), "PaidAmount");
    EXPECT_EQ(At(fields, Loans::InterestRate), "InterestRate");
    EXPECT_EQ(At(fields, Loans::AccountID), "AccountID");
    EXPECT_EQ(At(fields, Loans::Sequence), "Sequence");
    EXPECT_EQ(fields.size(), 6U);
}

}  // namespace
}  // namespace clb
