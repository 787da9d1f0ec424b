#pragma once

#include <cstdint>

// A record the application asks every importer for. Its fields are the
// application's business; importers that have nothing to say leave them zero.
struct CTavrinImporterRecord {
    std::uint64_t kind = 0;
    std::uint64_t options = 0;
    double value = 0.0;
    void* data = nullptr;
};
