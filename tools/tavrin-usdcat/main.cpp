// tavrin-usdcat: prints a layer (.usda, .usdc, .usd, .usdz) as text, or,
// with --flatten, the stage composed from it as one layer.
//
//   tavrin-usdcat FILE [--out OUTFILE] [-f|--flatten [--skipSourceFileComment]]
//
// Exit status: 0 on success, 1 when the layer cannot be opened or written,
// 2 on a usage error.

#include "usdcore/sdf/layer.h"
#include "usdcore/usd/stage.h"

#include <cstdio>
#include <cstring>
#include <string>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

int Usage(const char* message)
{
    std::fprintf(stderr,
                 "tavrin-usdcat: %s\n"
                 "usage: tavrin-usdcat FILE [--out OUTFILE] [-f|--flatten [--skipSourceFileComment]]\n"
                 "  -o, --out OUTFILE        write to OUTFILE instead of the standard output\n"
                 "  -f, --flatten            compose a stage with FILE as its root layer and\n"
                 "                           write its flattened content\n"
                 "  --skipSourceFileComment  with --flatten, leave out the note naming the\n"
                 "                           source in the layer's documentation\n",
                 message);
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    std::string input;
    std::string output;
    bool flatten = false;
    bool skipSourceFileComment = false;
    for (int i = 1; i < argc; ++i) {
        const char* argument = argv[i];
        if (std::strcmp(argument, "--out") == 0 || std::strcmp(argument, "-o") == 0) {
            if (i + 1 >= argc) return Usage("--out needs a file name");
            output = argv[++i];
        } else if (std::strcmp(argument, "--flatten") == 0 || std::strcmp(argument, "-f") == 0) {
            flatten = true;
        } else if (std::strcmp(argument, "--skipSourceFileComment") == 0) {
            skipSourceFileComment = true;
        } else if (std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "-h") == 0) {
            Usage("prints a layer, or the stage composed from it, as text");
            return 0;
        } else if (argument[0] == '-' && argument[1] != '\0') {
            return Usage((std::string("unknown option ") + argument).c_str());
        } else if (input.empty()) {
            input = argument;
        } else {
            return Usage("only one input file is read");
        }
    }
    if (input.empty()) {
        return Usage("no input file");
    }
    if (skipSourceFileComment && !flatten) {
        return Usage("--skipSourceFileComment needs --flatten");
    }
    SdfLayerRefPtr layer;
    if (flatten) {
        if (const UsdStageRefPtr stage = UsdStage::Open(input)) {
            layer = stage->Flatten(!skipSourceFileComment);
        }
    } else {
        layer = SdfLayer::FindOrOpen(input);
    }
    if (!layer) {
        std::fprintf(stderr, "tavrin-usdcat: cannot open '%s'\n", input.c_str());
        return 1;
    }
    if (!output.empty()) {
        return layer->Export(output) ? 0 : 1;
    }
    std::string text;
    if (!layer->ExportToString(&text)) {
        return 1;
    }
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
