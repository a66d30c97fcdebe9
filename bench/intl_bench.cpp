// The string operations beside what a user would take instead: the C library under a Shift-JIS locale, iconv with a
// table, ICU. Times are nanoseconds per operation on a text of 36 bytes; then the growth with the length of the text.
//
// The texts are walked in an order that changes from pass to pass: a branch predictor memorises a fixed order, which
// flatters every routine with branches.
#include <benchmark/benchmark.h>

#include <unicode/translit.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <morvl15/host_native.h>
#include <morvl15/intl.h>

#include "intl_bench_peers.h"

namespace {

constexpr uint32_t kTexts = 1024;  // a power of two
constexpr size_t kTextBytes = 36;
constexpr uint16_t kEnglish = 0x0409;
constexpr uint16_t kJapanese = 0x0411;

// ---- texts --------------------------------------------------------------------------------------------------------

class TextMaker {
  public:
    explicit TextMaker(uint32_t seed) : random_(seed) {}

    // Runs of one to six Latin letters, digits, half-width kana (some voiced), hiragana, katakana and kanji.
    std::string Japanese(size_t bytes) {
        std::string text;
        while (text.size() < bytes) {
            const uint32_t kind = Below(5);
            for (uint32_t left = 1 + Below(6); left > 0; --left) AppendJapanese(text, kind);
        }
        text.resize(bytes);
        if (EndsInHalf(text)) text.back() = 'x';
        return text;
    }
    std::string English(size_t bytes) {
        std::string text;
        while (text.size() < bytes) text += Below(6) == 0 ? ' ' : static_cast<char>('a' + Below(26));
        return text;
    }
    // Eight tokens of two to nine bytes.
    std::string Line(bool japanese) {
        std::string line;
        for (int token = 0; token < 8; ++token) {
            if (token > 0) line += ',';
            line += japanese ? Japanese(2 + Below(8)) : Word(2 + Below(8));
        }
        return line;
    }
    std::string Word(size_t bytes) {
        std::string word;
        while (word.size() < bytes) word += static_cast<char>('a' + Below(26));
        return word;
    }

  private:
    uint32_t Below(uint32_t limit) { return random_() % limit; }

    static bool EndsInHalf(const std::string& text) {
        const auto last = static_cast<uint16_t>(IntlStrLastChar(text.c_str()));
        return last > 0xFF00 && IntlIsKanji(static_cast<uint8_t>(last)) != 0;
    }

    void AppendJapanese(std::string& text, uint32_t kind) {
        switch (kind) {
            case 0: text += static_cast<char>('A' + Below(26)); break;
            case 1:
                text += static_cast<char>(0xB6 + Below(15));
                if (Below(4) == 0) text += '\xDE';
                break;
            case 2: Append(text, 0x82, 0x9F + Below(83)); break;
            case 3: Append(text, 0x83, 0x40 + Below(63)); break;
            default: Append(text, 0x88 + Below(16), 0x9F + Below(94)); break;
        }
    }
    static void Append(std::string& text, uint32_t lead, uint32_t trail) {
        text += static_cast<char>(lead);
        text += static_cast<char>(trail);
    }

    std::mt19937 random_;
};

void UseLanguage(uint16_t language) {
    HostSetLanguages(language, language);
    IntlInit();
}

std::vector<std::string> MakeTexts(const std::function<std::string(TextMaker&)>& make) {
    TextMaker maker(1);
    std::vector<std::string> texts;
    for (uint32_t i = 0; i < kTexts; ++i) texts.push_back(make(maker));
    return texts;
}

// ---- short texts --------------------------------------------------------------------------------------------------

using Texts = std::shared_ptr<std::vector<std::string>>;

template <class Body>
void RunOver(benchmark::State& state, const Texts& texts, uint16_t language, Body operation) {
    UseLanguage(language);
    std::mt19937 random(7);
    int64_t sum = 0;
    while (state.KeepRunningBatch(kTexts)) {
        uint32_t at = random() % kTexts;
        const uint32_t stride = (random() % kTexts) | 1;
        for (uint32_t i = 0; i < kTexts; ++i, at = (at + stride) % kTexts) sum += operation((*texts)[at]);
        benchmark::DoNotOptimize(sum);
    }
    UseLanguage(kEnglish);
}

template <class Body>
void Register(const std::string& name, const Texts& texts, uint16_t language, Body operation) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [=](benchmark::State& state) { RunOver(state, texts, language, operation); });
}

char gOut[4 << 20];
wchar_t gWideOut[4096];

int64_t EightTokens(const char* line) {
    const char* at = line;
    int64_t tokens = 0;
    for (uint16_t lead = 0; lead == 0 || *at != '\0'; lead = ',') {
        at += IntlStrGetToken(gOut, at, "", ",", lead, 64);
        ++tokens;
    }
    return tokens;
}

// ICU's transliterator between its converters.
class IcuWidth {
  public:
    explicit IcuWidth(const char* name) {
        UErrorCode status = U_ZERO_ERROR;
        transliterator_.reset(icu::Transliterator::createInstance(name, UTRANS_FORWARD, status));
        converter_ = ucnv_open("ibm-943_P15A-2003", &status);
    }
    int64_t Convert(const std::string& text) {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString wide(text.data(), static_cast<int32_t>(text.size()), converter_, status);
        transliterator_->transliterate(wide);
        return wide.extract(gOut, 4096, converter_, status);
    }

  private:
    std::unique_ptr<icu::Transliterator> transliterator_;
    UConverter* converter_;
};

void RegisterShort(bool hasLocale) {
    UseLanguage(kJapanese);
    const auto share = [](std::vector<std::string> texts) {
        return std::make_shared<std::vector<std::string>>(std::move(texts));
    };
    const Texts japanese = share(MakeTexts([](TextMaker& maker) { return maker.Japanese(kTextBytes); }));
    const Texts lines = share(MakeTexts([](TextMaker& maker) { return maker.Line(true); }));
    const Texts english = share(MakeTexts([](TextMaker& maker) { return maker.English(kTextBytes); }));
    const Texts englishLines = share(MakeTexts([](TextMaker& maker) { return maker.Line(false); }));
    Texts full = share(*japanese);
    for (std::string& text : *full) {
        IntlStrJapanFull(gOut, text.c_str());
        text = gOut;
    }
    UseLanguage(kEnglish);
    const auto icuFull = std::make_shared<IcuWidth>("Halfwidth-Fullwidth");
    const auto icuHalf = std::make_shared<IcuWidth>("Fullwidth-Halfwidth");
    const auto peer = [hasLocale](const std::string& name, const Texts& texts, auto operation) {
        if (hasLocale) Register(name, texts, kJapanese, operation);
    };

    Register("Count/ours", japanese, kJapanese, [](const std::string& text) { return IntlStrLen(text.c_str()); });
    peer("Count/mbsnrtowcs", japanese, [](const std::string& text) { return PeerCount(text.c_str(), text.size()); });
    Register("Mid/ours", japanese, kJapanese,
             [](const std::string& text) { return IntlStrMid(gOut, text.c_str(), 8, 8); });
    peer("Mid/mbrlen", japanese,
         [](const std::string& text) { return PeerMid(gOut, text.c_str(), text.size(), 8, 8); });
    Register("Left/ours", japanese, kJapanese,
             [](const std::string& text) { return IntlStrLeft(gOut, text.c_str(), 12); });
    Register("Right/ours", japanese, kJapanese,
             [](const std::string& text) { return IntlStrRight(gOut, text.c_str(), 12); });
    Register("Full/ours", japanese, kJapanese,
             [](const std::string& text) { return IntlStrJapanFull(gOut, text.c_str()); });
    Register("Full/iconv", japanese, kJapanese,
             [](const std::string& text) { return PeerFull(gOut, text.c_str(), text.size()); });
    Register("Full/ICU", japanese, kJapanese, [=](const std::string& text) { return icuFull->Convert(text); });
    Register("Half/ours", full, kJapanese,
             [](const std::string& text) { return IntlStrJapanHalf(gOut, text.c_str()); });
    Register("Half/iconv", full, kJapanese,
             [](const std::string& text) { return PeerHalf(gOut, text.c_str(), text.size()); });
    Register("Half/ICU", full, kJapanese, [=](const std::string& text) { return icuHalf->Convert(text); });
    Register("Scan/ours", japanese, kJapanese,
             [](const std::string& text) { return IntlStrScan(text.c_str(), "%\x83\x8D%M_"); });
    peer("Scan/fnmatch", japanese, [](const std::string& text) { return PeerMatches(text.c_str(), "*\x83\x8D*M?*"); });
    Register("ScanAscii/ours", english, kEnglish,
             [](const std::string& text) { return IntlStrScan(text.c_str(), "%e%t_"); });
    Register("ScanAscii/fnmatch", english, kEnglish,
             [](const std::string& text) { return PeerMatches(text.c_str(), "*e*t?*"); });
    Register("Tokens/ours", lines, kJapanese, [](const std::string& line) { return EightTokens(line.c_str()); });
    peer("Tokens/wcstok", lines, [](const std::string& line) { return PeerWideTokens(gWideOut, line.c_str()); });
    Register("TokensAscii/ours", englishLines, kEnglish,
             [](const std::string& line) { return EightTokens(line.c_str()); });
    Register("TokensAscii/strtok_r", englishLines, kEnglish,
             [](const std::string& line) { return PeerTokens(gOut, line.c_str()); });
}

// ---- growth -------------------------------------------------------------------------------------------------------

using GrowthOperation = int64_t (*)(const std::string& text);

int64_t AllTokens(const std::string& text) {
    return EightTokens(text.c_str());
}

void RegisterGrowth(const char* name, GrowthOperation operation) {
    auto* growth = benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
        UseLanguage(kJapanese);
        TextMaker maker(3);
        const auto bytes = static_cast<size_t>(state.range(0));
        std::string text = maker.Japanese(bytes);
        if (operation == AllTokens) {
            for (size_t i = 0; i < bytes; ++i) text[i] = i % 9 == 8 ? ',' : 'x';
        }
        for (auto _ : state) benchmark::DoNotOptimize(operation(text));
        state.SetBytesProcessed(state.iterations() * state.range(0));
        UseLanguage(kEnglish);
    });
    for (const int64_t bytes : {10, 100, 1000, 10000, 65536, 1 << 20}) growth->Arg(bytes);
}

void RegisterAllGrowth(bool hasLocale) {
    RegisterGrowth("Growth/Count", [](const std::string& t) -> int64_t { return IntlStrLen(t.c_str()); });
    if (hasLocale) {
        RegisterGrowth("Growth/mbsnrtowcs",
                       [](const std::string& t) -> int64_t { return PeerCount(t.c_str(), t.size()); });
    }
    RegisterGrowth("Growth/Mid", [](const std::string& t) -> int64_t {
        return IntlStrMid(gOut, t.c_str(), static_cast<int32_t>(t.size() / 3), 4);
    });
    RegisterGrowth("Growth/RightB", [](const std::string& t) -> int64_t { return IntlStrRightB(gOut, t.c_str(), 5); });
    RegisterGrowth("Growth/Replace",
                   [](const std::string& t) -> int64_t { return IntlStrReplace(gOut, t.c_str(), "xy", 3, 2); });
    RegisterGrowth("Growth/Scan, absent",
                   [](const std::string& t) -> int64_t { return IntlStrScan(t.c_str(), "%\x82\xF2%q"); });
    RegisterGrowth("Growth/Search, absent",
                   [](const std::string& t) -> int64_t { return IntlStrSearch(t.c_str(), "\x81\x40q?") != nullptr; });
    RegisterGrowth("Growth/all tokens", AllTokens);
    RegisterGrowth("Growth/Trim", [](const std::string& t) -> int64_t { return IntlStrTrim(gOut, t.c_str()); });
    RegisterGrowth("Growth/Full", [](const std::string& t) -> int64_t { return IntlStrJapanFull(gOut, t.c_str()); });
    RegisterGrowth("Growth/Half", [](const std::string& t) -> int64_t { return IntlStrJapanHalf(gOut, t.c_str()); });
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const bool hasLocale = PeersSetLocale() != 0;
    if (!hasLocale) {
        std::fprintf(stderr, "no locale ja_JP.SJIS, and localedef can't make it: its peers are left out\n");
    }
    RegisterShort(hasLocale);
    RegisterAllGrowth(hasLocale);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
