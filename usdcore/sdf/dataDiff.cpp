#include "usdcore/sdf/dataDiff.h"

#include <algorithm>
#include <sstream>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

class PathCollector : public SdfAbstractDataSpecVisitor
{
public:
    bool VisitSpec(const SdfAbstractData&, const SdfPath& path) override
    {
        paths.push_back(path);
        return true;
    }
    void Done(const SdfAbstractData&) override { std::sort(paths.begin(), paths.end()); }

    std::vector<SdfPath> paths;
};

std::vector<SdfPath> SortedPaths(const SdfData& data)
{
    PathCollector collector;
    data.VisitSpecs(&collector);
    return std::move(collector.paths);
}

bool Report(std::string* difference, const std::string& text)
{
    if (difference) {
        *difference = text;
    }
    return false;
}

// The first field of \p from (in \p from's order) missing from or different
// in \p to; empty when there is none.
std::string FieldDifference(const SdfPath& path, const SdfData::FieldVector& from,
                            const SdfData& to, bool fromIsFirst)
{
    for (const SdfData::Field& field : from) {
        const VtValue* other = to.GetFieldValue(path, field.first);
        std::ostringstream text;
        text << '<' << path << "> field '" << field.first << "': ";
        if (!other) {
            text << (fromIsFirst ? "only in the first" : "only in the second");
            return text.str();
        }
        if (*other != field.second) {
            const VtValue& first = fromIsFirst ? field.second : *other;
            const VtValue& second = fromIsFirst ? *other : field.second;
            text << first << " vs " << second;
            return text.str();
        }
    }
    return std::string();
}

} // namespace

bool SdfDataEqual(const SdfData& a, const SdfData& b, std::string* difference)
{
    const std::vector<SdfPath> aPaths = SortedPaths(a);
    const std::vector<SdfPath> bPaths = SortedPaths(b);
    std::vector<SdfPath> onlyInOne;
    std::set_symmetric_difference(aPaths.begin(), aPaths.end(), bPaths.begin(), bPaths.end(),
                                  std::back_inserter(onlyInOne));
    if (!onlyInOne.empty()) {
        const SdfPath& path = onlyInOne.front();
        return Report(difference, "<" + path.GetString() + "> is a spec only in the " +
                                      (a.HasSpec(path) ? "first" : "second"));
    }
    for (const SdfPath& path : aPaths) {
        if (a.GetSpecType(path) != b.GetSpecType(path)) {
            std::ostringstream text;
            text << '<' << path << "> spec type: " << a.GetSpecType(path) << " vs "
                 << b.GetSpecType(path);
            return Report(difference, text.str());
        }
        std::string fieldDifference = FieldDifference(path, *a.GetFields(path), b, true);
        if (fieldDifference.empty()) {
            fieldDifference = FieldDifference(path, *b.GetFields(path), a, false);
        }
        if (!fieldDifference.empty()) {
            return Report(difference, fieldDifference);
        }
    }
    return true;
}

PXR_NAMESPACE_CLOSE_SCOPE
