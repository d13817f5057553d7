// Repair-method and mutation codes that hold when a table file gives none.
#pragma once

#include <array>

namespace tabvex {

/// Of "X4", "W4" and "G9", and of "X6" and "W6".
// clang-format off
inline constexpr std::array kRepairMethodsA = {"E",  "ET",  "TE",  "I",  "IT", "N",   "P",  "V",  "U",  "H",   "LE", "LE1",
                                        "LE2", "LE3", "LE4", "LI", "LI1", "L",  "S",  "IE", "NE", "PE",  "UE", "HE",
                                        "LEE", "SN",  "LV",  "EV", "EVI", "EO", "IO", "NO", "PO", "LEO", "LIO", "LO"};
inline constexpr std::array kRepairMethodsB = {"E",   "ET",  "TE",  "I",  "IT",  "N", "P", "V", "U",   "H",
                                        "LE",  "LE1", "LE2", "LE3", "LE4", "LI", "LI1", "L", "S", "R",
                                        "E G", "PE",  "EO",  "IO", "NO",  "PO", "LEO", "LIO", "LO"};
static_assert(kRepairMethodsA.size() == 36 && kRepairMethodsB.size() == 29);

// clang-format on

struct CMutationCode {
    const char* Code;
    unsigned Kind;
};

/// Of "X4" and "G9", and of "W4".
// clang-format off
inline constexpr std::array<CMutationCode, 13> kMutationsC = {{{"BM", 0},
                                                        {"EM", 0},
                                                        {"IM", 0},
                                                        {"WM", 0},
                                                        {"MM", 0},
                                                        {"LM", 0},
                                                        {"NM", 0},
                                                        {"FM", 0},
                                                        {"VM", 0},
                                                        {"QM", 0},
                                                        {"GM", 0},
                                                        {"XM", 0},
                                                        {"TM", 3}}};
inline constexpr std::array<CMutationCode, 5> kMutationsD = {{{"EM", 0}, {"IM", 0}, {"WM", 0}, {"MM", 0}, {"LM", 0}}};
// clang-format on

} // namespace tabvex
