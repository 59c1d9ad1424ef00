#include "cli/ImportAnswers.h"

#include "data/AccountKind.h"
#include "data/clsDatabase.h"
#include "user/FormUser.h"

namespace clb {
namespace {

/// Keeps the first rows of a statement.
class FirstRows : public IStatementSink {
public:
    void BeginAccount(const StatementAccount&) override {}
    void EndAccount(const StatementBalances&) override {}
    void Row(const StatementRow& row) override
    {
        constexpr std::size_t kShown = 20;
        if (rows_.size() < kShown)
            rows_.push_back(row);
    }
    void LeftOut(const LeftOutPart&) override {}
    [[nodiscard]] const std::vector<StatementRow>& Rows() const { return rows_; }

private:
    std::vector<StatementRow> rows_;
};

std::int32_t Count(clsDatabase& data, const std::string& description)
{
    Recordset found;
    data.Fill(found,
              "SELECT AccountID FROM Account WHERE Description = '" +
                  clsDatabase::ToSqlString(description) + "'",
              true);
    return found.RecordCount();
}

}  // namespace

std::string OnlyAccountDescribedAs(clsDatabase& data, const std::string& description)
{
    if (Count(data, description) > 1)
        throw RuntimeError(errors::InvalidCall,
                           "More than one account is described as " + description);
    return description;
}

void ImportAnswers::Begin(const std::string& /*source*/, const IStatementReader& /*reader*/)
{
    refusal_.clear();
    unknown_ = 0;
}

void ImportAnswers::Choosing(const StatementAccount& account, std::size_t place,
                             const AccountCheck& check)
{
    account_ = account;
    first_ = place == 0;
    check_ = check;
}

std::string ImportAnswers::WhyNoAccount() const
{
    if (!refusal_.empty())
        return refusal_;
    return options_.map || options_.mapped
               ? "The file's account is not known, and --map names one account only. --create "
                 "makes a new one."
               : kAccountMissing;
}

std::optional<StatementAnswers> ImportAnswers::Ask(const std::string& source,
                                                   const IStatementReader& reader,
                                                   const std::vector<OpenQuestion>&,
                                                   const StatementAnswers& given)
{
    FirstRows first;
    reader.Read(given, first);
    proposed_[source] = first.Rows();
    return std::nullopt;
}

const std::vector<StatementRow>& ImportAnswers::Proposed(const std::string& source)
{
    return proposed_[source];
}

void ImportAnswers::Run(Form& form)
{
    data_->Lock();
    if (!Answer(form))
        FormUser(form).Cancel();
}

/// A mapped account gets the number from its file. The next unknown number belongs to another
/// account, so it is not mapped too.
bool ImportAnswers::Answer(Form& form)
{
    const bool unnamed = account_.number.empty() && account_.name.empty();
    if (unnamed && first_ && options_.unnamed)
        return Map(form, *options_.unnamed);
    if (options_.map && first_) {
        if (!unnamed && unknown_ > 1) {
            refusal_ = "The file has " + std::to_string(unknown_) +
                       " accounts that are not known, and --map names one only. Nothing of it was "
                       "imported. --create makes new ones.";
            return false;
        }
        if (!Map(form, *options_.map))
            return false;
        if (!unnamed) {
            options_.map.reset();
            options_.mapped = true;
        }
        return true;
    }
    if (!options_.create)
        return false;
    if (unnamed && first_ && CountDescribedAs(*options_.create) > 0)
        return Map(form, OnlyAccountDescribedAs(*data_, *options_.create));
    return Create(form, NewDescription(*options_.create));
}

bool ImportAnswers::Create(Form& form, const std::string& description) const
{
    const std::string ofFile = account_.type.empty() ? account_type::kBank : account_.type;
    FormUser user(form);
    return user.Option("optAccount(0)") && user.Set("txtDescription", description) &&
           user.Choose("cmbAccountType", options_.type.empty() ? ofFile : options_.type) &&
           user.Press("btnOK");
}

bool ImportAnswers::Map(Form& form, const std::string& description)
{
    refusal_ = check_(description);
    if (!refusal_.empty())
        return false;
    FormUser user(form);
    return user.Option("optAccount(1)") && user.Choose("cmbAccountID", description) &&
           user.Press("btnOK");
}

std::int32_t ImportAnswers::CountDescribedAs(const std::string& description) const
{
    return Count(*data_, description);
}

/// A description that no account has. Adds a number if the wanted one is taken.
std::string ImportAnswers::NewDescription(const std::string& wanted) const
{
    std::string description = wanted;
    for (int n = 2; CountDescribedAs(description) > 0; ++n)
        description = wanted + " (" + std::to_string(n) + ")";
    return description;
}

}  // namespace clb
