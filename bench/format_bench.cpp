// Numbers through pictures beside what a user would take instead: ICU's DecimalFormat with its pattern compiled
// beforehand, and the standard library's std::put_money and std::get_money. Our picture is passed, and parsed, with
// every call. Times are nanoseconds per operation.
//
// Operands are walked in an order that changes from pass to pass: a branch predictor memorises a fixed order, which
// flatters every routine with branches.
#include <benchmark/benchmark.h>
#include <unicode/decimfmt.h>
#include <unicode/numfmt.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <ios>
#include <locale>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <morvl15/format.h>
#include <morvl15/number.h>

namespace {

constexpr uint32_t kOperands = 1024;
constexpr const char* kAccounts = "#,##0.00;(#,##0.00)";
constexpr const char* kScientific = "0.00E+00";
constexpr const char* kPercent = "0.0%";

// Amounts of a ledger: a count of whole digits, two decimal places, either sign.
struct Amounts {
    Amounts(int minDigits, int maxDigits) {
        std::mt19937 random(1);
        const auto between = [&random](int low, int high) {
            return low + static_cast<int>(random() % static_cast<uint32_t>(high - low + 1));
        };
        for (uint32_t i = 0; i < kOperands; ++i) {
            std::string digits = between(0, 1) != 0 ? "-" : "";
            const int whole = between(minDigits, maxDigits);
            for (int digit = 0; digit < whole; ++digit) {
                digits += static_cast<char>(between(digit == 0 ? '1' : '0', '9'));
            }
            const std::string cents = {static_cast<char>(between('0', '9')), static_cast<char>(between('1', '9'))};
            texts[i] = digits + "." + cents;
            minorUnits[i] = digits + cents;
            NumAsciiToNumber(&numbers[i], texts[i].c_str());
            doubles[i] = std::strtod(texts[i].c_str(), nullptr);
            minorDoubles[i] = std::strtold(minorUnits[i].c_str(), nullptr);
        }
    }

    std::string texts[kOperands];
    std::string minorUnits[kOperands];  // as std::put_money takes them
    Number numbers[kOperands];
    double doubles[kOperands];
    long double minorDoubles[kOperands];
};

// One batch visits every operand once, from another start and with another stride each time.
template <typename Operation>
void Walk(benchmark::State& state, Operation operation) {
    std::mt19937 random(7);
    while (state.KeepRunningBatch(kOperands)) {
        uint32_t at = random() % kOperands;
        const uint32_t stride = random() | 1;
        for (uint32_t i = 0; i < kOperands; ++i, at = (at + stride) % kOperands) operation(at);
        benchmark::ClobberMemory();
    }
}

// ---- ours -------------------------------------------------------------------------------------------------------

struct OurBlock {
    explicit OurBlock(const char* picture, bool useProfile = false) {
        FMTInitCntlBlock(&block);
        block.Type = 6;
        block.UseProfile = useProfile ? 1 : 0;
        block.ThousandSep = ',';
        block.DecimalSep = '.';
        block.Digits = 2;
        block.Currency = "$";
        block.CurrencyPos = 0;
        block.NegCurrency = 0;
        block.Picture = picture;
        block.Output = output;
    }
    FMTCntlBlock block = {};
    char output[512] = {};
};

void OursFormat(benchmark::State& state, const Amounts& amounts, const char* picture, bool useProfile) {
    OurBlock ours(picture, useProfile);
    Walk(state, [&](uint32_t at) {
        ours.block.Value = amounts.numbers[at];
        benchmark::DoNotOptimize(FMTFormatNumber(&ours.block));
    });
}

// The texts that the picture makes of the amounts.
std::vector<std::string> TextsBy(const Amounts& amounts, const char* picture) {
    std::vector<std::string> texts;
    OurBlock ours(picture);
    for (const Number& number : amounts.numbers) {
        ours.block.Value = number;
        FMTFormatNumber(&ours.block);
        texts.emplace_back(ours.output);
    }
    return texts;
}

void OursUnformat(benchmark::State& state, const Amounts& amounts, const char* picture, bool useProfile) {
    const std::vector<std::string> texts = TextsBy(amounts, picture);
    OurBlock ours(picture, useProfile);
    Walk(state, [&](uint32_t at) {
        ours.block.Input = texts[at].c_str();
        benchmark::DoNotOptimize(FMTUnformatNumberStr(&ours.block));
    });
}

void OursValidate(benchmark::State& state, const Amounts& amounts, const char* picture, int32_t type) {
    const std::vector<std::string> texts = TextsBy(amounts, picture);
    OurBlock ours(picture);
    ours.block.Type = type;
    Walk(state, [&](uint32_t at) {
        ours.block.Input = texts[at].c_str();
        benchmark::DoNotOptimize(FMTValidateNumber(&ours.block));
    });
}

// ---- ICU --------------------------------------------------------------------------------------------------------

std::unique_ptr<icu::DecimalFormat> IcuPattern(const char* pattern) {
    UErrorCode status = U_ZERO_ERROR;
    return std::make_unique<icu::DecimalFormat>(icu::UnicodeString(pattern),
                                                icu::DecimalFormatSymbols(icu::Locale::getUS(), status), status);
}

void IcuFormat(benchmark::State& state, const Amounts& amounts, const char* pattern) {
    const auto format = IcuPattern(pattern);
    icu::UnicodeString text;
    Walk(state, [&](uint32_t at) {
        text.remove();
        format->format(amounts.doubles[at], text);
        benchmark::DoNotOptimize(text);
    });
}

void IcuParse(benchmark::State& state, const Amounts& amounts, const char* pattern) {
    const auto format = IcuPattern(pattern);
    std::vector<icu::UnicodeString> texts;
    for (const double amount : amounts.doubles) format->format(amount, texts.emplace_back());
    Walk(state, [&](uint32_t at) {
        icu::Formattable value;
        icu::ParsePosition position(0);
        format->parse(texts[at], value, position);
        benchmark::DoNotOptimize(value.getDouble());
    });
}

// ---- the standard library ---------------------------------------------------------------------------------------

struct Accounts : std::moneypunct<char> {
    std::string do_grouping() const override { return "\3"; }
    char do_thousands_sep() const override { return ','; }
    char do_decimal_point() const override { return '.'; }
    int do_frac_digits() const override { return 2; }
    std::string do_negative_sign() const override { return "()"; }
    pattern do_pos_format() const override { return {{sign, symbol, value, none}}; }
    pattern do_neg_format() const override { return {{sign, symbol, value, none}}; }
};

struct MoneyStream {
    MoneyStream() : put(1), get(1) {
        stream.init(nullptr);
        stream.imbue(std::locale(std::locale::classic(), new Accounts));
    }
    struct Stream : std::ios {
        using std::ios::init;
        Stream() = default;
    } stream;
    struct Put : std::money_put<char, char*> {
        using std::money_put<char, char*>::money_put;
    } put;
    struct Get : std::money_get<char, const char*> {
        using std::money_get<char, const char*>::money_get;
    } get;
};

void MoneyPutDigits(benchmark::State& state, const Amounts& amounts) {
    MoneyStream money;
    char text[256];
    Walk(state, [&](uint32_t at) {
        *money.put.put(text, false, money.stream, ' ', amounts.minorUnits[at]) = 0;
        benchmark::DoNotOptimize(text);
    });
}

void MoneyPutDouble(benchmark::State& state, const Amounts& amounts) {
    MoneyStream money;
    char text[256];
    Walk(state, [&](uint32_t at) {
        *money.put.put(text, false, money.stream, ' ', amounts.minorDoubles[at]) = 0;
        benchmark::DoNotOptimize(text);
    });
}

template <typename Result>
void MoneyGet(benchmark::State& state, const Amounts& amounts) {
    MoneyStream money;
    const std::vector<std::string> texts = TextsBy(amounts, kAccounts);
    Walk(state, [&](uint32_t at) {
        const std::string& text = texts[at];
        Result value = {};
        std::ios_base::iostate error = std::ios_base::goodbit;
        money.get.get(text.data(), text.data() + text.size(), false, money.stream, error, value);
        benchmark::DoNotOptimize(value);
    });
}

// ---- the runs ---------------------------------------------------------------------------------------------------

using Measure = std::function<void(benchmark::State&)>;

void Register(const std::string& name, const Measure& measure) {
    benchmark::RegisterBenchmark(name.c_str(), measure);
}

void RegisterAll() {
    static const Amounts money(1, 9);
    Register("format/accounts/ours", [](auto& s) { OursFormat(s, money, kAccounts, false); });
    Register("format/accounts/ours by the profile", [](auto& s) { OursFormat(s, money, kAccounts, true); });
    Register("format/accounts/ICU", [](auto& s) { IcuFormat(s, money, kAccounts); });
    Register("format/accounts/put_money of digits", [](auto& s) { MoneyPutDigits(s, money); });
    Register("format/accounts/put_money of a long double", [](auto& s) { MoneyPutDouble(s, money); });
    Register("format/scientific/ours", [](auto& s) { OursFormat(s, money, kScientific, false); });
    Register("format/scientific/ICU", [](auto& s) { IcuFormat(s, money, "0.00E+00"); });
    Register("format/percent/ours", [](auto& s) { OursFormat(s, money, kPercent, false); });
    Register("format/percent/ICU", [](auto& s) { IcuFormat(s, money, kPercent); });
    Register("format/the currency layout/ours", [](auto& s) { OursFormat(s, money, "$", false); });
    Register("format/the currency layout/ICU", [](auto& s) { IcuFormat(s, money, "$#,##0.00;($#,##0.00)"); });

    Register("parse/accounts/ours", [](auto& s) { OursUnformat(s, money, kAccounts, false); });
    Register("parse/accounts/ours by the profile", [](auto& s) { OursUnformat(s, money, kAccounts, true); });
    Register("parse/accounts/ICU", [](auto& s) { IcuParse(s, money, kAccounts); });
    Register("parse/accounts/get_money of digits", [](auto& s) { MoneyGet<std::string>(s, money); });
    Register("parse/accounts/get_money of a long double", [](auto& s) { MoneyGet<long double>(s, money); });
    Register("parse/free-form/ours", [](auto& s) { OursValidate(s, money, "#,##0.00", 4); });
    Register("parse/free-form/ICU", [](auto& s) { IcuParse(s, money, "#,##0.00"); });
    Register("parse/free-form amount/ours", [](auto& s) { OursValidate(s, money, "$#,##0.00;($#,##0.00)", 5); });
    Register("parse/scientific/ours", [](auto& s) { OursUnformat(s, money, kScientific, false); });
    Register("parse/scientific/ICU", [](auto& s) { IcuParse(s, money, "0.00E+00"); });
    Register("parse/percent/ours", [](auto& s) { OursUnformat(s, money, kPercent, false); });
    Register("parse/percent/ICU", [](auto& s) { IcuParse(s, money, kPercent); });

    for (const int digits : {1, 2, 4, 8, 12, 16, 18, 20}) {
        const auto amounts = std::make_shared<Amounts>(digits, digits);
        const std::string whole = std::to_string(digits + 2) + " digits/";
        Register("growth/" + whole + "format", [=](auto& s) { OursFormat(s, *amounts, kAccounts, false); });
        Register("growth/" + whole + "ICU format", [=](auto& s) { IcuFormat(s, *amounts, kAccounts); });
        Register("growth/" + whole + "unformat", [=](auto& s) { OursUnformat(s, *amounts, kAccounts, false); });
        Register("growth/" + whole + "validate", [=](auto& s) { OursValidate(s, *amounts, "#,##0.00", 4); });
        Register("growth/" + whole + "ICU parse", [=](auto& s) { IcuParse(s, *amounts, kAccounts); });
    }
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
