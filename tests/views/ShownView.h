// A fixture that shows a view of a small book.
#pragma once
#include <gtest/gtest.h>

#include <cstdint>

#include "data/ViewColumns.h"
#include "tests/support/Books.h"

namespace clb {

/// A book with one account of a bank, one of investments and one loan account, in March 2006.
class ShownView : public testing::Test {
protected:
    ShownView()
    {
        books_.AddAccount("B-1", "Bank", "Checking");
        books_.AddAccount("I-1", "Investment", "Broker");
        books_.AddAccount("L-1", "Loan", "House");
    }

    /// Shows the view; one of an account shows the first account that has this view.
    void Show(std::int32_t view)
    {
        clsView& shown = books_.window.View();
        shown.AccountType("Bank");
        shown.AccountID(view == vwInvestment ? "I-1" : view == vwLoan ? "L-1" : "B-1");
        shown.View(view);
    }
    CVGrid& Grid() { return books_.window.Grid; }
    GridColumns& Columns() { return Grid().Columns(); }

    Books books_;
};

}  // namespace clb
