#include "engine/storage/Functions.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "base/Value.h"
#include "engine/storage/Convert.h"
#include "engine/storage/Database.h"
#include "engine/storage/Refusals.h"
#include "engine/storage/StoredForm.h"

namespace clb {
namespace {

/// The arguments and the result of one call.
class Call {
public:
    Call(sqlite3_context* context, sqlite3_value** arguments)
        : context_(context), arguments_(arguments)
    {
    }

    [[nodiscard]] bool IsNull(int i) const
    {
        return sqlite3_value_type(arguments_[i]) == SQLITE_NULL;
    }
    [[nodiscard]] bool IsWhole(int i) const
    {
        return sqlite3_value_type(arguments_[i]) == SQLITE_INTEGER;
    }
    [[nodiscard]] bool IsReal(int i) const
    {
        return sqlite3_value_type(arguments_[i]) == SQLITE_FLOAT;
    }
    /// Returns a whole number or an amount. Throws for anything else, because the storage would
    /// convert a text to some number.
    [[nodiscard]] std::int64_t Integer(int i) const
    {
        if (!IsWhole(i))
            throw refuse::WrongOperand();
        return sqlite3_value_int64(arguments_[i]);
    }
    [[nodiscard]] double Real(int i) const
    {
        if (!IsWhole(i) && !IsReal(i))
            throw refuse::WrongOperand();
        return sqlite3_value_double(arguments_[i]);
    }
    [[nodiscard]] std::string_view Text(int i) const
    {
        const bool null = IsNull(i);
        const auto* text = sqlite3_value_text(arguments_[i]);
        if (!text && !null)
            throw std::bad_alloc();
        const auto size = static_cast<std::size_t>(sqlite3_value_bytes(arguments_[i]));
        return {reinterpret_cast<const char*>(text), text ? size : 0};
    }

    void Answer(std::int64_t value) { sqlite3_result_int64(context_, value); }
    void Answer(double value) { sqlite3_result_double(context_, value); }
    void Answer(std::string_view text)
    {
        sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }

private:
    sqlite3_context* context_;
    sqlite3_value** arguments_;
};

__extension__ using Wide = __int128;

std::int64_t Whole(Wide value)
{
    if (value < std::numeric_limits<std::int64_t>::min() ||
        value > std::numeric_limits<std::int64_t>::max())
        throw refuse::Overflow();
    return static_cast<std::int64_t>(value);
}

/// value / divisor, half to even; divisor is positive.
Wide DivideHalfToEven(Wide value, Wide divisor)
{
    Wide quotient = value / divisor;
    Wide rest = value % divisor;
    if (rest < 0) {
        rest += divisor;
        --quotient;
    }
    const bool up = 2 * rest > divisor || (2 * rest == divisor && quotient % 2 != 0);
    return up ? quotient + 1 : quotient;
}

void Add(Call& call)
{
    call.Answer(Whole(Wide{call.Integer(0)} + call.Integer(1)));
}
void Subtract(Call& call)
{
    call.Answer(Whole(Wide{call.Integer(0)} - call.Integer(1)));
}
void Negate(Call& call)
{
    call.Answer(Whole(-Wide{call.Integer(0)}));
}

void Multiply(Call& call)
{
    call.Answer(Whole(DivideHalfToEven(Wide{call.Integer(0)} * call.Integer(1), 10000)));
}

void Times(Call& call)
{
    const double number = call.Real(1);
    constexpr double kExact = 9007199254740992.0;  // a double is exact for whole numbers up to here
    if (call.IsWhole(1) || (number == std::trunc(number) && std::abs(number) < kExact)) {
        call.Answer(Whole(Wide{call.Integer(0)} * static_cast<std::int64_t>(number)));
        return;
    }
    const long double product = std::nearbyint(static_cast<long double>(call.Integer(0)) *
                                               static_cast<long double>(number));
    if (!(product >= -9223372036854775808.0L && product < 9223372036854775808.0L))
        throw refuse::Overflow();
    call.Answer(static_cast<std::int64_t>(product));
}

void Long(Call& call)
{
    // The storage turns a result beyond 64 bits into a binary fraction.
    if (call.IsReal(0))
        throw refuse::Overflow();
    const std::int64_t value = call.Integer(0);
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max())
        throw refuse::Overflow();
    call.Answer(value);
}

void Exact(Call& call)
{
    call.Answer(call.Integer(0));
}

void Divide(Call& call)
{
    if (call.Real(1) == 0)
        throw refuse::DivisionByZero();
    call.Answer(call.Real(0) / call.Real(1));
}

Value Argument(const Call& call, FieldType type)
{
    switch (type) {
        case FieldType::Text: return std::string(call.Text(0));
        case FieldType::Long: {
            const std::int64_t number = call.Integer(0);
            if (number < std::numeric_limits<std::int32_t>::min() ||
                number > std::numeric_limits<std::int32_t>::max())
                throw refuse::Overflow();
            return static_cast<std::int32_t>(number);
        }
        case FieldType::Money: return Money::FromScaled(call.Integer(0));
        case FieldType::Double: return call.Real(0);
        case FieldType::Single: return static_cast<float>(call.Real(0));
        case FieldType::Boolean: return call.Integer(0) != 0;
        case FieldType::Date:
            if (const auto date = Date::FromIso(call.Text(0)))
                return *date;
            throw refuse::TypeMismatch();
    }
    return Null();
}

void AnswerValue(Call& call, const Value& value)
{
    WithStoredForm(value, Overloaded{
                              [](Null) {},  // without an answer the result is null
                              [&](std::int64_t number) { call.Answer(number); },
                              [&](double number) { call.Answer(number); },
                              [&](const std::string& text) { call.Answer(std::string_view(text)); },
                          });
}

void ConvertCall(Call& call)
{
    const auto from = static_cast<FieldType>(call.Integer(1));
    const ColumnType to{static_cast<FieldType>(call.Integer(2)),
                        static_cast<std::size_t>(call.Integer(3)), false};
    AnswerValue(call, ConvertForColumn(Argument(call, from), to, call.Text(4)));
}

std::size_t CountArgument(const Call& call, int i)
{
    const std::int64_t count = call.Integer(i);
    if (count < 0)
        throw refuse::WrongSql("Invalid procedure call: a length or position is negative.");
    return static_cast<std::size_t>(count);
}

void LeftCall(Call& call)
{
    call.Answer(std::string_view(Left(call.Text(0), CountArgument(call, 1))));
}

void RightCall(Call& call)
{
    const auto text = call.Text(0);
    const std::size_t length = Length(text);
    const std::size_t count = std::min(CountArgument(call, 1), length);
    call.Answer(text.substr(ByteOffset(text, length - count)));
}

void MidCall(Call& call)
{
    const std::size_t from = CountArgument(call, 1);
    if (from == 0)
        throw refuse::WrongSql("Invalid procedure call: positions count from 1.");
    auto text = call.Text(0);
    text.remove_prefix(ByteOffset(text, from - 1));
    call.Answer(text.substr(0, ByteOffset(text, CountArgument(call, 2))));
}

void RoundCall(Call& call)
{
    const std::int64_t decimals = call.Integer(1);
    if (decimals < 0 || decimals > 15)
        throw refuse::WrongSql("Invalid procedure call: Round takes 0 to 15 decimals.");
    if (static_cast<FieldType>(call.Integer(2)) == FieldType::Money) {
        Wide unit = 1;
        for (std::int64_t i = decimals; i < 4; ++i)
            unit *= 10;
        call.Answer(Whole(DivideHalfToEven(call.Integer(0), unit) * unit));
        return;
    }
    const double scale = std::pow(10.0, static_cast<double>(decimals));
    const double scaled = call.Real(0) * scale;
    call.Answer(std::isfinite(scaled) ? std::nearbyint(scaled) / scale : call.Real(0));
}

template <void (*Body)(Call&)>
std::optional<EngineError> ErrorOf(Call& call)
{
    try {
        Body(call);
        return std::nullopt;
    } catch (const RuntimeError& error) {
        return EngineError(error.Number(), error.what());
    }
}

/// A null argument gives null. An error is passed to the database unchanged, and Step throws it.
template <void (*Body)(Call&), int NullableFrom>
void Entry(sqlite3_context* context, int count, sqlite3_value** arguments)
{
    Call call(context, arguments);
    for (int i = 0; i < std::min(count, NullableFrom); ++i)
        if (call.IsNull(i))
            return;
    // No exception may pass through the storage, not even one raised while reporting the error.
    try {
        if (const auto error = ErrorOf<Body>(call)) {
            static_cast<Database*>(sqlite3_user_data(context))->Fail(*error);
            sqlite3_result_error(context, error->what(), -1);
        }
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

/// A comparison cannot report an error to the storage. Without memory it returns any order, and the
/// query ends with the error.
int Alphabetical(void* database, int sizeA, const void* a, int sizeB, const void* b)
{
    try {
        return CompareAlphabetical({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                                   {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
    } catch (...) {
        static_cast<Database*>(database)->FailForMemory();
        return 0;
    }
}

/// A sum modulo 2^64 and the number of overflows, so that only the total must fit.
struct ExactTotal {
    std::int64_t sum;
    std::int64_t passes;
};

/// The storage provides zeroed memory. Null cells do not count.
void AddToSum(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const int kind = sqlite3_value_type(arguments[0]);
    if (kind == SQLITE_NULL)
        return;
    try {
        auto* const total =
            static_cast<ExactTotal*>(sqlite3_aggregate_context(context, sizeof(ExactTotal)));
        if (!total)
            return sqlite3_result_error_nomem(context);
        if (kind != SQLITE_INTEGER) {
            const EngineError error = refuse::WrongOperand();
            static_cast<Database*>(sqlite3_user_data(context))->Fail(error);
            return sqlite3_result_error(context, error.what(), -1);
        }
        const std::int64_t value = sqlite3_value_int64(arguments[0]);
        if (__builtin_add_overflow(total->sum, value, &total->sum))
            total->passes += value > 0 ? 1 : -1;
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

/// The storage calls this for an abandoned sum too, so the error must not be recorded in the
/// database.
void AnswerSum(sqlite3_context* context)
{
    const auto* const total = static_cast<ExactTotal*>(sqlite3_aggregate_context(context, 0));
    if (!total)
        return;  // no value: null
    if (total->passes != 0)
        sqlite3_result_error(context, kIntegerOverflow, -1);
    else
        sqlite3_result_int64(context, total->sum);
}

struct FunctionEntry {
    const char* name;
    int arguments;
    void (*entry)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array<FunctionEntry, 13> kFunctions = {{
    {"clb_add", 2, Entry<Add, 2>},
    {"clb_subtract", 2, Entry<Subtract, 2>},
    {"clb_negate", 1, Entry<Negate, 1>},
    {"clb_multiply", 2, Entry<Multiply, 2>},
    {"clb_times", 2, Entry<Times, 2>},
    {"clb_exact", 1, Entry<Exact, 1>},
    {"clb_long", 1, Entry<Long, 1>},
    {"clb_divide", 2, Entry<Divide, 2>},
    {"clb_convert", 5, Entry<ConvertCall, 1>},
    {"clb_left", 2, Entry<LeftCall, 2>},
    {"clb_right", 2, Entry<RightCall, 2>},
    {"clb_mid", 3, Entry<MidCall, 3>},
    {"clb_round", 3, Entry<RoundCall, 2>},
}};

}  // namespace

void RegisterFunctions(Database& database)
{
    const auto require = [&](int code) {
        if (code != SQLITE_OK)
            database.Refuse(code);
    };
    require(sqlite3_create_collation_v2(database.Raw(), "clb_alpha", SQLITE_UTF8, &database,
                                        Alphabetical, nullptr));
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    for (const FunctionEntry& function : kFunctions)
        require(sqlite3_create_function_v2(database.Raw(), function.name, function.arguments,
                                           kFlags, &database, function.entry, nullptr, nullptr,
                                           nullptr));
    require(sqlite3_create_function_v2(database.Raw(), "clb_sum", 1, kFlags, &database, nullptr,
                                       AddToSum, AnswerSum, nullptr));
}

}  // namespace clb
