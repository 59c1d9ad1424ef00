// How a value reaches the storage: as a parameter, by a conversion, or in a literal.
#include <gtest/gtest.h>

#include "engine/storage/Database.h"
#include "engine/storage/StoredForm.h"

namespace clb {
namespace {

/// The value's storage class and text, after it went into the storage as a parameter.
std::string StoredOf(const Value& value)
{
    Database database;
    database.Create(":memory:");
    Query read = database.Prepare("SELECT typeof(?1) || ' ' || coalesce(?1, '')");
    read.Bind(1, value);
    database.Step(read);
    return read.Text(0);
}

TEST(StoredFormTest, EachKindOfValueHasOneForm)
{
    EXPECT_EQ(StoredOf(Null()), "null ");
    EXPECT_EQ(StoredOf(std::string("it's")), "text it's");
    EXPECT_EQ(StoredOf(std::int32_t{-7}), "integer -7");
    EXPECT_EQ(StoredOf(Money::Parse("12.5")), "integer 125000");
    EXPECT_EQ(StoredOf(0.5), "real 0.5");
    EXPECT_EQ(StoredOf(0.5F), "real 0.5");
    EXPECT_EQ(StoredOf(*Date::FromIso("2026-02-28")), "text 2026-02-28");
    EXPECT_EQ(StoredOf(true), "integer 1");
    EXPECT_EQ(StoredOf(false), "integer 0");
}

TEST(StoredFormTest, OnlyADatesTextIsATemporary)
{
    const auto temporary = [](const Value& value) {
        return WithStoredForm(
            value, Overloaded{[](const std::string&) { return false; },
                              [](std::string&&) { return true; }, [](auto) { return false; }});
    };

    EXPECT_FALSE(temporary(std::string("text")));
    EXPECT_TRUE(temporary(*Date::FromIso("2026-02-28")));
}

}  // namespace
}  // namespace clb
