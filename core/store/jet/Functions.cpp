#include "core/store/jet/Functions.h"

#include "core/base/Currency.h"
#include "core/base/DateTime.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace jet {

namespace {

void RaiseRange(sqlite3_context* context) {
    sqlite3_result_error(context, "Hodnota je mimo rozsah měny.", -1);
}

void Answer(sqlite3_context* context, WideCount value) {
    if (IsInRange(value))
        sqlite3_result_int64(context, static_cast<std::int64_t>(value));
    else
        RaiseRange(context);
}

bool AnyNull(sqlite3_value** values) {
    return sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL;
}

bool AnyInexact(sqlite3_value** values) {
    return sqlite3_value_type(values[0]) != SQLITE_INTEGER || sqlite3_value_type(values[1]) != SQLITE_INTEGER;
}

/// Out of 64 bits a whole number goes over to floating point, as the engine's own do.
void Exact(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_FLOAT)
        RaiseRange(context);
    else
        sqlite3_result_value(context, values[0]);
}

/// None where the product leaves the range of a currency.
std::optional<std::int64_t> Product(sqlite3_value** values) {
    if (AnyInexact(values))
        return std::nullopt;
    const WideCount product = RoundedProduct(sqlite3_value_int64(values[0]), sqlite3_value_int64(values[1]));
    return IsInRange(product) ? std::optional(static_cast<std::int64_t>(product)) : std::nullopt;
}

/// One row whose product is out of range must not keep the others from being listed and sorted.
void Mul(sqlite3_context* context, int, sqlite3_value** values) {
    if (AnyNull(values))
        return;
    if (const std::optional<std::int64_t> product = Product(values))
        sqlite3_result_int64(context, *product);
    else
        sqlite3_result_double(context,
                              sqlite3_value_double(values[0]) * sqlite3_value_double(values[1]) / Currency::One);
}

struct Sum {
    WideCount total;
    bool any;
};

void SumMulStep(sqlite3_context* context, int, sqlite3_value** values) {
    if (AnyNull(values))
        return;
    const std::optional<std::int64_t> product = Product(values);
    if (!product) {
        RaiseRange(context);
        return;
    }
    // The engine aligns its memory to 8 bytes only, which a 128-bit number does not bear.
    auto* memory = sqlite3_aggregate_context(context, sizeof(Sum));
    if (memory == nullptr) {
        sqlite3_result_error_nomem(context);
        return;
    }
    Sum sum;
    std::memcpy(&sum, memory, sizeof sum);
    sum.total += *product;
    sum.any = true;
    std::memcpy(memory, &sum, sizeof sum);
}

void SumMulFinal(sqlite3_context* context) {
    const auto* memory = sqlite3_aggregate_context(context, 0);
    if (memory == nullptr)
        return;
    Sum sum;
    std::memcpy(&sum, memory, sizeof sum);
    if (sum.any)
        Answer(context, sum.total);
}

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

/// The code points of a text with their case folded one by one. Broken bytes become U+FFFD.
std::u32string Folded(std::string_view text) {
    std::u32string folded;
    folded.reserve(text.size());
    const auto size = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < size;) {
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(text.data(), i, size, c);
        folded +=
            static_cast<char32_t>(c < 0x80 ? (c >= 'A' && c <= 'Z' ? c + 32 : c) : u_foldCase(c, U_FOLD_CASE_DEFAULT));
    }
    return folded;
}

/// A LIKE pattern, folded once and used for many texts.
class LikePattern {
public:
    explicit LikePattern(std::string_view pattern) : m_pattern(Folded(pattern)) {}

    bool Matches(std::string_view text) const {
        const std::u32string folded = Folded(text);
        std::size_t t = 0;
        std::size_t p = 0;
        std::size_t star = std::u32string::npos;
        std::size_t starText = 0;
        while (t < folded.size()) {
            if (p < m_pattern.size() && m_pattern[p] == U'%') {
                star = p++;
                starText = t;
            } else if (p < m_pattern.size() && (m_pattern[p] == U'_' || m_pattern[p] == folded[t])) {
                ++p;
                ++t;
            } else if (star != std::u32string::npos) {
                p = star + 1;
                t = ++starText;
            } else {
                return false;
            }
        }
        while (p < m_pattern.size() && m_pattern[p] == U'%')
            ++p;
        return p == m_pattern.size();
    }

private:
    std::u32string m_pattern;
};

void Like(sqlite3_context* context, int, sqlite3_value** values) {
    if (AnyNull(values))
        return;
    auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0));
    if (pattern != nullptr) {
        sqlite3_result_int(context, pattern->Matches(TextOf(values[1])) ? 1 : 0);
        return;
    }
    auto* fresh = new LikePattern(TextOf(values[0]));
    sqlite3_result_int(context, fresh->Matches(TextOf(values[1])) ? 1 : 0);
    sqlite3_set_auxdata(context, 0, fresh, [](void* p) { delete static_cast<LikePattern*>(p); });
}

class Collator {
public:
    Collator() {
        UErrorCode status = U_ZERO_ERROR;
        m_collator = ucol_open("cs", &status);
        if (U_FAILURE(status) != 0)
            throw ComError("collation", "cs", ResultCode::Fail, QString::fromUtf8(u_errorName(status)));
        ucol_setStrength(m_collator, UCOL_SECONDARY);
    }
    ~Collator() { ucol_close(m_collator); }
    Collator(const Collator&) = delete;
    Collator& operator=(const Collator&) = delete;

    int Compare(std::string_view a, std::string_view b) const {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(m_collator, a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                                static_cast<std::int32_t>(b.size()), &status);
    }

    /// Sort keys compare as bytes as their texts compare in Czech order.
    std::string_view SortKey(std::string_view text) {
        m_utf16.resize(text.size() + 1);
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t length = 0;
        u_strFromUTF8WithSub(m_utf16.data(), static_cast<std::int32_t>(m_utf16.size()), &length, text.data(),
                             static_cast<std::int32_t>(text.size()), 0xFFFD, nullptr, &status);
        std::int32_t size = MakeKey(length);
        if (size > static_cast<std::int32_t>(m_key.size())) {
            m_key.resize(static_cast<std::size_t>(size));
            size = MakeKey(length);
        }
        return {reinterpret_cast<const char*>(m_key.data()), static_cast<std::size_t>(size)};
    }

private:
    std::int32_t MakeKey(std::int32_t length) {
        return ucol_getSortKey(m_collator, m_utf16.data(), length, m_key.data(),
                               static_cast<std::int32_t>(m_key.size()));
    }

    UCollator* m_collator = nullptr;
    std::vector<UChar> m_utf16;
    std::vector<std::uint8_t> m_key = std::vector<std::uint8_t>(256);
};

void SortKey(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return;
    const std::string_view key = static_cast<Collator*>(sqlite3_user_data(context))->SortKey(TextOf(values[0]));
    sqlite3_result_blob64(context, key.data(), key.size(), SQLITE_TRANSIENT);
}

void IsDate(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_result_int(context, DateTime::FromStored(TextOf(values[0])).IsValid() ? 1 : 0);
}

void DateDiff(sqlite3_context* context, int, sqlite3_value** values) {
    const DateTime from = DateTime::FromStored(TextOf(values[0])).StartOfDay();
    const DateTime to = DateTime::FromStored(TextOf(values[1])).StartOfDay();
    if (from.IsValid() && to.IsValid())
        sqlite3_result_int64(context, (to.SecondsSince1970() - from.SecondsSince1970()) / 86400);
}

int CompareCzech(void* collator, int sizeA, const void* a, int sizeB, const void* b) {
    return static_cast<Collator*>(collator)->Compare({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                                                     {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
}

int CompareFolded(void*, int sizeA, const void* a, int sizeB, const void* b) {
    return Folded({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)})
        .compare(Folded({static_cast<const char*>(b), static_cast<std::size_t>(sizeB)}));
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void Check(sqlite3* database, int result) {
    if (result != SQLITE_OK)
        sqlite::Raise(database, result, "register", "function");
}

void Register(sqlite3* database, const char* name, int arguments, Function function) {
    Check(database,
          sqlite3_create_function_v2(database, name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                     nullptr, function, nullptr, nullptr, nullptr));
}

void Drop(void* collator) {
    delete static_cast<Collator*>(collator);
}

} // namespace

void RegisterFunctions(sqlite3* database) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    Register(database, "kuvel_mul", 2, Mul);
    Register(database, "kuvel_exact", 1, Exact);
    Register(database, "kuvel_like", 2, Like);
    Register(database, "kuvel_isdate", 1, IsDate);
    Register(database, "kuvel_datediff", 2, DateDiff);
    Check(database, sqlite3_create_function_v2(database, "kuvel_sum_mul", 2, flags, nullptr, nullptr, SumMulStep,
                                               SumMulFinal, nullptr));
    Check(database, sqlite3_create_function_v2(database, "kuvel_sortkey", 1, flags, new Collator, SortKey, nullptr,
                                               nullptr, Drop));
    Check(database, sqlite3_create_collation_v2(database, "kuvel_fold", SQLITE_UTF8, nullptr, CompareFolded, nullptr));
    auto* collator = new Collator;
    const int result = sqlite3_create_collation_v2(database, "kuvel_czech", SQLITE_UTF8, collator, CompareCzech, Drop);
    if (result != SQLITE_OK)
        Drop(collator); // the engine drops it only when it took it
    Check(database, result);
}

} // namespace jet
