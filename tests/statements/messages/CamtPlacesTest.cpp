#include <gtest/gtest.h>

#include "statements/messages/CamtPlaces.h"
#include "tests/statements/messages/CamtText.h"

namespace clb {
namespace {

using namespace camt;

/// Writes down what comes, but for accounts and balances, and keeps the places of it.
class Written : public ICamtParts {
public:
    explicit Written(CamtPlaces* places = nullptr) : places_(places) {}
    std::string events;

    void Begin(CamtKind kind) override
    {
        events += "begin " + std::to_string(static_cast<int>(kind)) + '\n';
        if (places_)
            places_->Begin(kind);
    }
    void Account(const CamtPart&) override {}
    void Balance(const CamtPart&) override {}
    void Entry(const CamtEntryPart& part) override
    {
        events += "entry " + std::to_string(part.begin);
        for (const std::string_view text :
             {part.text, part.amount, part.amountTag, part.direction, part.state, part.bookingDate,
              part.serviceReference, part.entryReference})
            events += '|' + std::string(text);
        events += '\n';
        if (places_)
            places_->Entry(part);
    }
    void End() override
    {
        events += "end\n";
        if (places_)
            places_->End();
    }
    void Broken(std::size_t offset, bool inEntry) override
    {
        events += "broken " + std::to_string(offset) + (inEntry ? " in entry\n" : "\n");
        if (places_)
            places_->Broken(offset, inEntry);
    }

private:
    CamtPlaces* places_;
};

TEST(CamtPlacesTest, BringsWhatTheMarkupHasWhereverTheFileIsCut)
{
    const std::string whole = Statements(
        Statement(Entry{.amount = "1", .state = "PDNG"}.Text() +
                  Entry{.amount = "-2", .more = Tag("AcctSvcrRef", "20260305-17")}.Text()) +
        Statement("", Account("DE02120300000000202051")) +
        Statement(Balance("OPBD", "9") + Entry{.booked = ""}.Text() +
                      Entry{.more = Tag("NtryRef", "REF-2") + "<AcctSvcrRef/>"}.Text(),
                  Account("NL91ABNA0417164300", "USD")));
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string text = whole.substr(0, length);
        CamtPlaces places(text);
        Written first(&places);
        ReadCamtParts(text, first);

        Written again;
        places.Read(again);
        ASSERT_EQ(again.events, first.events) << length;
    }
}

}  // namespace
}  // namespace clb
