// The document beside the plain reference on documents by chance, from fixed seeds. A difference aborts.
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "support/ini_script.h"

namespace {

constexpr std::array<std::string_view, 24> kPieces = {
    "[",  "]", "[A]\r\n", "[B]\n",    "[General]\r\n", " = ",          "\r\n",  "\n",
    "a",  "b", "B",       "10",       "KV2D_LINE_1",   "KV2D_LINE_10", "line",  " ",
    "\t", "=", "\xE4",    "\x81\x5D", "\x90\x5B",      "\x80",         "value", "\r"};

class Dice {
  public:
    explicit Dice(unsigned seed) : m_engine(seed) {}
    unsigned operator()(unsigned sides) { return static_cast<unsigned>(m_engine() % sides); }

  private:
    std::mt19937 m_engine;
};

std::string RollScript(Dice& dice) {
    std::string script;
    // Most documents have the suite's own separator and comparison.
    script += static_cast<char>(dice(4) == 0 ? dice(256) : dice(2) * 4);
    const unsigned operations = dice(24);
    script += static_cast<char>(operations);
    for (unsigned i = 0; i < 3 * operations; ++i)
        script += static_cast<char>(dice(256));
    return script;
}

std::string RollLines(Dice& dice, unsigned lines) {
    std::string text;
    for (unsigned i = 0; i < lines; ++i) {
        if (dice(8) == 0) {
            text.append("[S").append(std::to_string(dice(4))).append("]");
        } else {
            text.append("key")
                .append(std::to_string(dice(lines)))
                .append(" = ")
                .append(dice(5) ? "value" : "");
        }
        text.append(dice(2) ? "\r\n" : "\n");
    }
    return text;
}

TEST(IniAgainstReference, LinesByChance_BehaveAlike) {
    Dice dice(20240101);
    for (int run = 0; run < 1000; ++run) {
        std::string script = RollScript(dice);
        script += RollLines(dice, dice(60));
        PlayIniScript(script);
    }
}

TEST(IniAgainstReference, PiecesByChance_BehaveAlike) {
    Dice dice(7);
    for (int run = 0; run < 4000; ++run) {
        std::string script = RollScript(dice);
        for (unsigned i = dice(60); i > 0; --i)
            script += kPieces[dice(kPieces.size())];
        PlayIniScript(script);
    }
}

TEST(IniAgainstReference, BytesByChance_BehaveAlike) {
    Dice dice(99);
    for (int run = 0; run < 2000; ++run) {
        std::string script = RollScript(dice);
        for (unsigned i = dice(100); i > 0; --i)
            script += static_cast<char>(dice(256));
        PlayIniScript(script);
    }
}

TEST(IniAgainstReference, LongDocument_BehavesAlike) {
    Dice dice(3);
    std::string script(2, '\0');
    script[1] = 8;
    for (int i = 0; i < 24; ++i)
        script += static_cast<char>(dice(256));
    PlayIniScript(script + RollLines(dice, 2000));
}

}  // namespace
