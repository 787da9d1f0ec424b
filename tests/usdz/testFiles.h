#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <unistd.h>

namespace usdztest {

/// Writes \p bytes to a fresh file under the test temp directory and
/// returns its path. Names include the process id so parallel runs do not
/// share files.
inline std::string WriteTempFile(const std::string& name, const std::string& bytes)
{
    const std::string path =
        ::testing::TempDir() + "usdz_" + std::to_string(::getpid()) + "_" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

} // namespace usdztest
