#pragma once

#include <fstream>
#include <sstream>
#include <string>

// Reads a corpus file whole; empty when the corpus is not on this machine.
inline std::string ReadCorpusFile(const std::string& relativePath)
{
    std::ifstream in(std::string(TAVRIN_CORPUS_DIR) + "/" + relativePath, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

// The smallest crate file of the corpus, version 0.0.1 (padded path headers and
// specs, raw sections): `def "AirConditioner"` and `def Scope "Scope"`.
inline const char* const kOldestCrateFile =
    "PixarAnimationStudios_OpenUSD/pxr/usd/usd/testenv/testUsdFileFormats/crate.usd";
