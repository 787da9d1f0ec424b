#pragma once

#include <array>
#include <cstdint>
#include <vector>

// How the application should offer an importer. The meaning of each flag is
// the application's; an importer sets the ones that apply to it.
struct CTavrinImporterFlags {
    std::array<bool, 11> flags{};
    std::vector<std::uintptr_t> list;
};
