#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace quillbox::test {

/// How a text box treats a number: what was typed, what is stored, and how that is shown.
struct TypedNumber {
  const char* text;
  std::int64_t number;  ///< for a date the bits of its days
  int error = 0;        ///< the run-time error of storing it
};

constexpr std::int64_t daysBits(double days) { return std::bit_cast<std::int64_t>(days); }

inline constexpr auto kAmounts = std::to_array<TypedNumber>({{"", 0},
                                                             {"12", 120'000},
                                                             {"12.5", 125'000},
                                                             {"12.50 dollars", 125'000},
                                                             {"1 234", 10'000},
                                                             {"-3.25", -32'500},
                                                             {" 7", 70'000},
                                                             {"5e", 50'000},
                                                             {"1e3", 10'000'000},
                                                             {"&H10", 0},
                                                             {"abc", 0},
                                                             {"0.00005", 0},
                                                             {"0.00015", 2},
                                                             {"1e30", 0, 6}});
inline constexpr auto kWholes = std::to_array<TypedNumber>({{"", 0},
                                                            {"12", 12},
                                                            {"12.5", 12},
                                                            {"13.5", 14},
                                                            {"-7", -7},
                                                            {"free", 0},
                                                            {"9 or so", 9},
                                                            {"32767", 32'767},
                                                            {"40000", 0, 6}});
inline constexpr auto kDates = std::to_array<TypedNumber>({{"1/1/80", daysBits(29'221)},
                                                           {"11/21/26", daysBits(46'347)},
                                                           {"11/21/2026", daysBits(46'347)},
                                                           {"2026-11-21", daysBits(46'347)},
                                                           {"1/2/98 13:30", daysBits(35'797.5625)},
                                                           {"12/30/1899", daysBits(0)},
                                                           {"never", 0, 13},
                                                           {"2/30/98", 0, 13}});

/// How dates in records are shown; each text can also be typed.
inline constexpr auto kShownDates =
    std::to_array<TypedNumber>({{"1/1/80", daysBits(29'221)},
                                {"11/21/26", daysBits(46'347)},
                                {"1/2/98 13:30", daysBits(35'797.5625)},
                                {"12/30/1899", daysBits(0)}});

}  // namespace quillbox::test
