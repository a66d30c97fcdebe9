// Number beside what a user would take instead: _Decimal128, Boost's cpp_dec_float with 22 digits, and for text strtod
// and std::to_chars. Times are nanoseconds per operation.
//
// Operands are walked in an order, and met in pairs, that change from pass to pass: a branch predictor memorises a
// fixed order, which flatters every routine with branches.
#include <benchmark/benchmark.h>

#include <boost/multiprecision/cpp_dec_float.hpp>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <morvl15/number.h>

#include "number_bench_peers.h"

namespace {

using Boost = boost::multiprecision::number<boost::multiprecision::cpp_dec_float<22>, boost::multiprecision::et_off>;

struct Shape {
    std::string name;
    int minDigits;
    int maxDigits;
    int minPower;  // of ten, behind the digits
    int maxPower;
    bool negativeToo;
};

class Operands {
  public:
    Operands(const Shape& shape, uint32_t seed) {
        std::mt19937 random(seed);
        const auto between = [&random](int low, int high) {
            return low + static_cast<int>(random() % (high - low + 1));
        };
        for (int i = 0; i < kOperands; ++i) {
            std::string text = shape.negativeToo && between(0, 1) ? "-" : "";
            const int digits = between(shape.minDigits, shape.maxDigits);
            for (int digit = 0; digit < digits; ++digit) {
                text += static_cast<char>(digit == 0 || digit == digits - 1 ? between('1', '9') : between('0', '9'));
            }
            const int power = between(shape.minPower, shape.maxPower);
            NumAsciiToNumber(&numbers[i], (text + "e" + std::to_string(power)).c_str());
            char plain[256];
            NumToAscii(&numbers[i], plain, 40);
            texts[i] = plain;
            boosts[i] = Boost(text + "e" + std::to_string(power));
            doubles[i] = std::strtod(plain, nullptr);
            NumDoubleToNumber(&shortNumbers[i], doubles[i]);
            pointers[i] = texts[i].c_str();
        }
        for (int i = 0; i < kOperands; ++i) std::replace(texts[i].begin(), texts[i].end(), 'E', 'e');
        decimals.reset(DecimalMake(pointers));
    }

    std::string texts[kOperands];
    const char* pointers[kOperands];
    Number numbers[kOperands];
    Number shortNumbers[kOperands];  // what a double can hold
    Boost boosts[kOperands];
    double doubles[kOperands];
    std::unique_ptr<DecimalOperands, void (*)(DecimalOperands*)> decimals{nullptr, DecimalFree};
};

struct Pair {
    explicit Pair(const Shape& shape) : a(shape, 1), b(shape, 2) {}
    Operands a;
    Operands b;
    Number numberResults[kOperands];
    Boost boostResults[kOperands];
    int32_t lengths[kOperands];
};

template <typename Body>
inline void ForEach(Walk walk, Body body) {
    uint32_t at = walk.first;
    for (uint32_t i = 0; i < kOperands; ++i, at = (at + walk.stride) % kOperands) {
        body(at, (at + walk.offset) % kOperands);
    }
}

using Pass = std::function<void(Pair&, Walk)>;

void Run(benchmark::State& state, const std::shared_ptr<Pair>& pair, const Pass& pass) {
    std::mt19937 random(7);
    const auto operand = [&random] { return static_cast<uint32_t>(random() % kOperands); };
    while (state.KeepRunningBatch(kOperands)) {
        pass(*pair, Walk{operand(), operand() | 1, operand()});
        benchmark::ClobberMemory();
    }
}

template <auto kOperation>
void NumberPass(Pair& pair, Walk walk) {
    ForEach(walk, [&pair](uint32_t at, uint32_t other) {
        kOperation(&pair.numberResults[at], &pair.a.numbers[at], &pair.b.numbers[other]);
    });
}

template <typename Operator>
void BoostPass(Pair& pair, Walk walk) {
    ForEach(walk, [&pair](uint32_t at, uint32_t other) {
        pair.boostResults[at] = Operator()(pair.a.boosts[at], pair.b.boosts[other]);
    });
}

template <auto kOperation>
void DecimalPass(Pair& pair, Walk walk) {
    benchmark::DoNotOptimize((kOperation(pair.a.decimals.get(), pair.b.decimals.get(), walk), 0));
}

void NumberCompare(Pair& pair, Walk walk) {
    int32_t sum = 0;
    ForEach(walk, [&](uint32_t at, uint32_t other) { sum += NumCompare(&pair.a.numbers[at], &pair.b.numbers[other]); });
    benchmark::DoNotOptimize(sum);
}

void BoostCompare(Pair& pair, Walk walk) {
    int32_t sum = 0;
    ForEach(walk, [&](uint32_t at, uint32_t other) { sum += pair.a.boosts[at].compare(pair.b.boosts[other]); });
    benchmark::DoNotOptimize(sum);
}

void NumberSum(Pair& pair, Walk walk) {
    Number sum;
    NumMakeNull(&sum);
    ForEach(walk, [&](uint32_t, uint32_t other) { NumAddition(&sum, &sum, &pair.a.numbers[other]); });
    benchmark::DoNotOptimize(sum);
}

void BoostSum(Pair& pair, Walk walk) {
    Boost sum = 0;
    ForEach(walk, [&](uint32_t, uint32_t other) { sum += pair.a.boosts[other]; });
    benchmark::DoNotOptimize(sum);
}

void DecimalSumPass(Pair& pair, Walk walk) {
    DecimalSum(pair.a.decimals.get(), walk);
}

void NumberRound(Pair& pair, Walk walk) {
    ForEach(walk, [&](uint32_t at, uint32_t other) { NumRound(&pair.numberResults[at], &pair.a.numbers[other], 2); });
}

void NumberFromText(Pair& pair, Walk walk) {
    ForEach(walk,
            [&](uint32_t at, uint32_t other) { NumAsciiToNumber(&pair.numberResults[at], pair.a.pointers[other]); });
}

void DoubleFromText(Pair& pair, Walk walk) {
    double sum = 0;
    ForEach(walk, [&](uint32_t, uint32_t other) { sum += std::strtod(pair.a.pointers[other], nullptr); });
    benchmark::DoNotOptimize(sum);
}

void BoostFromText(Pair& pair, Walk walk) {
    ForEach(walk, [&](uint32_t at, uint32_t other) { pair.boostResults[at] = Boost(pair.a.pointers[other]); });
}

template <Number (Operands::*kNumbers)[kOperands], uint16_t kWidth>
void NumberToText(Pair& pair, Walk walk) {
    char text[128];
    ForEach(walk, [&](uint32_t, uint32_t other) {
        benchmark::DoNotOptimize(NumToAscii(&(pair.a.*kNumbers)[other], text, kWidth));
        benchmark::DoNotOptimize(text);
    });
}

void DoubleToText(Pair& pair, Walk walk) {
    char text[128];
    ForEach(walk, [&](uint32_t, uint32_t other) {
        *std::to_chars(text, text + sizeof text, pair.a.doubles[other]).ptr = '\0';
        benchmark::DoNotOptimize(text);
    });
}

void BoostToText(Pair& pair, Walk walk) {
    ForEach(walk, [&](uint32_t, uint32_t other) { benchmark::DoNotOptimize(pair.a.boosts[other].str()); });
}

void NumberFromDouble(Pair& pair, Walk walk) {
    ForEach(walk,
            [&](uint32_t at, uint32_t other) { NumDoubleToNumber(&pair.numberResults[at], pair.a.doubles[other]); });
}

void DecimalFromDoublePass(Pair& pair, Walk walk) {
    DecimalFromDouble(pair.a.decimals.get(), pair.a.doubles, walk);
}

void NumberToDouble(Pair& pair, Walk walk) {
    double sum = 0;
    ForEach(walk, [&](uint32_t, uint32_t other) {
        double value;
        NumToDouble(&pair.a.numbers[other], &value);
        sum += value;
    });
    benchmark::DoNotOptimize(sum);
}

void DecimalToDoublePass(Pair& pair, Walk walk) {
    benchmark::DoNotOptimize(DecimalToDouble(pair.a.decimals.get(), walk));
}

struct Entry {
    const char* operation;
    const char* library;
    Pass pass;
};

// The first of each operation is ours.
const std::vector<Entry>& Entries() {
    static const std::vector<Entry> entries = {
        {"add", "Number", NumberPass<NumAddition>},
        {"add", "Decimal128", DecimalPass<DecimalAdd>},
        {"add", "cpp_dec_float", BoostPass<std::plus<>>},
        {"subtract", "Number", NumberPass<NumSubtract>},
        {"subtract", "Decimal128", DecimalPass<DecimalSubtract>},
        {"subtract", "cpp_dec_float", BoostPass<std::minus<>>},
        {"sum", "Number", NumberSum},
        {"sum", "Decimal128", DecimalSumPass},
        {"sum", "cpp_dec_float", BoostSum},
        {"multiply", "Number", NumberPass<NumMultiply>},
        {"multiply", "Decimal128", DecimalPass<DecimalMultiply>},
        {"multiply", "cpp_dec_float", BoostPass<std::multiplies<>>},
        {"divide", "Number", NumberPass<NumDivide>},
        {"divide", "Decimal128", DecimalPass<DecimalDivide>},
        {"divide", "cpp_dec_float", BoostPass<std::divides<>>},
        {"compare", "Number", NumberCompare},
        {"compare", "Decimal128", DecimalPass<DecimalCompare>},
        {"compare", "cpp_dec_float", BoostCompare},
        {"round", "Number", NumberRound},
        {"from_text", "Number", NumberFromText},
        {"from_text", "strtod", DoubleFromText},
        {"from_text", "cpp_dec_float", BoostFromText},
        {"to_text", "Number", NumberToText<&Operands::numbers, 108>},
        {"to_text", "Number_30_wide", NumberToText<&Operands::numbers, 30>},
        {"to_text", "Number_of_double", NumberToText<&Operands::shortNumbers, 108>},
        {"to_text", "to_chars", DoubleToText},
        {"to_text", "cpp_dec_float", BoostToText},
        {"from_double", "Number", NumberFromDouble},
        {"from_double", "Decimal128", DecimalFromDoublePass},
        {"to_double", "Number", NumberToDouble},
        {"to_double", "Decimal128", DecimalToDoublePass},
    };
    return entries;
}

void Register(const Shape& shape, bool oursOnly) {
    const auto pair = std::make_shared<Pair>(shape);
    for (const Entry& entry : Entries()) {
        if (oursOnly && std::strcmp(entry.library, "Number") != 0) continue;
        const std::string name = std::string(entry.operation) + "/" + shape.name + "/" + entry.library;
        benchmark::RegisterBenchmark(name.c_str(),
                                     [pair, pass = entry.pass](benchmark::State& state) { Run(state, pair, pass); });
    }
}

}  // namespace

int main(int argc, char** argv) {
    // Amounts with two decimal places; values as long as a Number holds; every length and sign, with exponents that
    // bring operands together; the same over the whole range of exponents.
    Register({"money", 3, 9, -2, -2, true}, false);
    Register({"long", 20, 22, -10, -8, true}, false);
    Register({"mixed", 1, 22, -12, 2, true}, false);
    Register({"far", 1, 22, -60, 60, true}, false);
    for (const int digits : {1, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22}) {
        const std::string name = std::to_string(digits) + "_digits";
        Register({name, digits, digits, -digits / 2, -digits / 2, true}, true);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
