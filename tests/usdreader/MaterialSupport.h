#pragma once

// Reading one prim's material binding into a fresh basic material.

#include <map>
#include <memory>
#include <string>

#include "host/CTavrinMaterial.h"
#include "tests/usdreader/ImportSupport.h"

namespace TavrinReaderTests {

// A material "Paint" whose surface is the shader "Surface" with the given
// input lines, extra prims inside the material, and a mesh "Box" bound to it.
std::string PaintScene(const std::string& surfaceInputs, const std::string& insideMaterial = "");

struct BindingResult {
    bool found = false;
    Tavrin::CTavrinString name;
    std::unique_ptr<Tavrin::CTavrinBasicGeneralMaterial> material;
};

// ReadMaterialBinding on the prim at primPath; the name starts as "before".
BindingResult ReadBinding(Tavrin::CTavrinUSDReaderHandler& handler, const std::string& primPath);

// The values the basic material was assigned, by their JSON names.
std::map<std::string, std::vector<double>> AssignedValues(const Tavrin::CTavrinBasicMaterial& material);
// The non-empty texture slots, by their JSON names.
std::map<std::string, std::string> FilledTextures(const Tavrin::CTavrinBasicMaterial& material);

} // namespace TavrinReaderTests
