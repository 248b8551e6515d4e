// How much a file from a stranger may ask of the reader.
#pragma once

#include <cstddef>

namespace fighost::kicad {

/// Beyond any of these the reader stops with an error that names the limit. The defaults leave room
/// for the largest designs that people draw and keep a hostile file within a few gigabytes.
struct Limits {
    std::size_t fileBytes = std::size_t(512) << 20;
    std::size_t tokenBytes = std::size_t(128) << 20;  ///< one text or word; pictures are one each
    std::size_t tokens = 60'000'000;                  ///< of one file
    std::size_t depth = 1000;                         ///< lists within lists
    std::size_t sheets = 10'000;                      ///< instances in the whole design
    std::size_t sheetDepth = 100;                     ///< sheets within sheets
    std::size_t items = 20'000'000;                   ///< drawn in the whole design
    std::size_t busMembers = 10'000;                  ///< of one bus name
    std::size_t totalBusMembers = 2'000'000;          ///< of all bus names of the design
};

}  // namespace fighost::kicad
