// The time of Number and picture operations on the host that this is built for, to set the 32-bit Windows build beside
// the native one: scripts/compare_hosts.sh. Google Benchmark can't be had for both, so the loop is a plain one:
// operands in an order that changes from pass to pass, the best of several passes, nanoseconds per operation.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <morvl15/morvl15.h>

namespace {

constexpr size_t kOperands = 1024;
constexpr int kPasses = 60;

struct Operands {
    std::vector<std::string> texts;
    std::vector<std::string> formatted;
    std::vector<Number> numbers;
    std::vector<double> doubles;  // as a person types them: at most 12 digits
    std::vector<size_t> order;
};

// Amounts of 1 to 20 digits, of either sign, with 0 to 6 places.
std::string RandomText(std::mt19937& random) {
    std::string text = random() % 2 != 0 ? "-" : "";
    const size_t places = random() % 7;
    const size_t wholeDigits = 1 + random() % (20 - places);
    for (size_t digit = 0; digit < wholeDigits; ++digit) text += static_cast<char>('1' + random() % 9);
    if (places > 0) text += '.';
    for (size_t digit = 0; digit < places; ++digit) text += static_cast<char>('1' + random() % 9);
    return text;
}

FMTCntlBlock PictureBlock() {
    FMTCntlBlock block;
    FMTInitCntlBlock(&block);
    block.Type = 6;
    block.UseProfile = 1;
    block.Picture = "#,##0.00;(#,##0.00)";
    return block;
}

Operands MakeOperands() {
    Operands operands;
    std::mt19937 random(15);
    FMTCntlBlock block = PictureBlock();
    for (size_t i = 0; i < kOperands; ++i) {
        operands.texts.push_back(RandomText(random));
        Number number;
        NumAsciiToNumber(&number, operands.texts.back().c_str());
        operands.numbers.push_back(number);
        char text[128];
        block.Value = number;
        block.Output = text;
        FMTFormatNumber(&block);
        operands.formatted.push_back(text);
        operands.doubles.push_back(static_cast<double>(random() % 2000000000) * 0.01 - 10000000);
        operands.order.push_back(i);
    }
    return operands;
}

volatile uint32_t sink;

// Runs `operation(first, second)` over all operands, met in new pairs at each pass, and prints the best pass.
template <class Operation>
void Measure(const char* name, Operands& operands, Operation operation) {
    using Clock = std::chrono::steady_clock;
    std::mt19937 random(16);
    double best = 1e9;
    for (int pass = 0; pass < kPasses; ++pass) {
        std::shuffle(operands.order.begin(), operands.order.end(), random);
        const size_t distance = 1 + random() % (kOperands - 1);
        uint32_t sum = 0;
        const Clock::time_point start = Clock::now();
        for (const size_t first : operands.order) sum += operation(first, (first + distance) % kOperands);
        const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
        sink = sink + sum;
        best = std::min(best, taken.count() / kOperands);
    }
    std::printf("%s %.1f\n", name, best);
}

void MeasureNumbers(Operands& operands) {
    const Number* const numbers = operands.numbers.data();
    const auto withResult = [&](const char* name, auto operation) {
        Measure(name, operands, [&](size_t a, size_t b) {
            Number result;
            operation(&result, &numbers[a], &numbers[b]);
            return uint32_t{result.bytes[0]};
        });
    };
    withResult("NumAddition", NumAddition);
    withResult("NumSubtract", NumSubtract);
    withResult("NumMultiply", NumMultiply);
    withResult("NumDivide", NumDivide);
    Measure("NumCompare", operands,
            [&](size_t a, size_t b) { return static_cast<uint32_t>(NumCompare(&numbers[a], &numbers[b])); });
    Measure("NumRound", operands, [&](size_t a, size_t /*b*/) {
        Number result;
        return static_cast<uint32_t>(NumRound(&result, &numbers[a], 2)) + result.bytes[0];
    });
    Measure("NumToDouble", operands, [&](size_t a, size_t /*b*/) {
        double value;
        NumToDouble(&numbers[a], &value);
        return static_cast<uint32_t>(value != 0);
    });
    Measure("NumDoubleToNumber", operands, [&](size_t a, size_t /*b*/) {
        Number result;
        return static_cast<uint32_t>(NumDoubleToNumber(&result, operands.doubles[a])) + result.bytes[0];
    });
    Measure("NumAsciiToNumber", operands, [&](size_t a, size_t /*b*/) {
        Number result;
        return static_cast<uint32_t>(NumAsciiToNumber(&result, operands.texts[a].c_str()));
    });
    Measure("NumToAscii", operands, [&](size_t a, size_t /*b*/) {
        char text[64];
        return static_cast<uint32_t>(NumToAscii(&numbers[a], text, 40));
    });
}

void MeasurePictures(Operands& operands) {
    char text[128];
    FMTCntlBlock block = PictureBlock();
    block.Output = text;
    Measure("FMTFormatNumber", operands, [&](size_t a, size_t /*b*/) {
        block.Value = operands.numbers[a];
        return static_cast<uint32_t>(FMTFormatNumber(&block));
    });
    Measure("FMTUnformatNumberStr", operands, [&](size_t a, size_t /*b*/) {
        block.Input = operands.formatted[a].c_str();
        return static_cast<uint32_t>(FMTUnformatNumberStr(&block));
    });
    Measure("FMTIsNumberPicValid", operands,
            [&](size_t /*a*/, size_t /*b*/) { return static_cast<uint32_t>(FMTIsNumberPicValid(&block)); });
}

}  // namespace

int main() {
    Operands operands = MakeOperands();
    MeasureNumbers(operands);
    MeasurePictures(operands);
    return 0;
}
