#include "host/CTavrinDocumentJson.h"

#include <algorithm>
#include <ostream>
#include <sstream>
#include <unordered_map>

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinMaterial.h"
#include "host/CTavrinTransform.h"

namespace Tavrin {

namespace {

// An object with room for \p members: its members sit in a vector of
// (const key, value) pairs, which regrows by copying, so a geometry would
// otherwise be copied whole each time a member is added after it.
CTavrinJson Object(std::size_t members)
{
    CTavrinJson json = CTavrinJson::object();
    json.get_ref<CTavrinJson::object_t&>().reserve(members);
    return json;
}

CTavrinJson Array(std::size_t elements)
{
    CTavrinJson json = CTavrinJson::array();
    json.get_ref<CTavrinJson::array_t&>().reserve(elements);
    return json;
}

CTavrinJson MatrixJson(const CTavrinMatrix& matrix)
{
    CTavrinJson values = Array(16);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            values.push_back(matrix.M(row, column));
    return values;
}

CTavrinJson VectorsJson(const std::vector<CTavrin3DVertex>& vectors)
{
    CTavrinJson list = Array(vectors.size());
    for (const CTavrin3DVertex& v : vectors)
        list.push_back({v.X(), v.Y(), v.Z()});
    return list;
}

const char* NodeTypeName(enumEntityType type)
{
    switch (type) {
    case ENTITY_3D_OBJECT:
        return "3DObject";
    case ENTITY_SKELETON_JOINT:
        return "SkeletonJoint";
    default:
        return "TransformNode";
    }
}

// Writes \p value as dump(2) prints it inside a document, where it starts
// \p indent spaces deep, straight to \p out; invalid UTF-8 is replaced
// rather than thrown on.
void WriteNested(const CTavrinJson& value, int indent, std::ostream& out)
{
    nlohmann::detail::serializer<CTavrinJson> serializer(nlohmann::detail::output_adapter<char>(out), ' ',
                                                         CTavrinJson::error_handler_t::replace);
    serializer.dump(value, true, false, 2, static_cast<unsigned int>(indent));
}

class DocumentWriter {
public:
    explicit DocumentWriter(const CTavrinDocument& document) : m_document(document)
    {
        const auto& nodes = document.SceneNodes();
        for (std::size_t i = 0; i < nodes.size(); ++i)
            m_ids.emplace(nodes[i], static_cast<int>(i));
    }

    int NodeId(const CTavrinSceneNode* node) const
    {
        const auto found = m_ids.find(node);
        return found == m_ids.end() ? -1 : found->second;
    }

    CTavrinJson NodeReference(const CTavrinSceneNode* node) const
    {
        const int id = NodeId(node);
        return id < 0 ? CTavrinJson(nullptr) : CTavrinJson(id);
    }

    CTavrinJson Write(const CTavrinSequenceJsonWriter& sequence) const
    {
        CTavrinJson nodes = CTavrinJson::array();
        for (const CTavrinSceneNode* node : m_document.SceneNodes())
            nodes.push_back(Node(*node));
        CTavrinJson result = CTavrinJson::object();
        result["nodes"] = std::move(nodes);
        result["sequence"] = Sequence(sequence);
        return result;
    }

    // The same text as dumping Write()'s result nested \p indent spaces
    // deep, one node at a time: a scene of a million prims never stands in
    // memory as one JSON tree.
    void WriteText(const CTavrinSequenceJsonWriter& sequence, int indent, std::ostream& out) const
    {
        const std::string inner(indent + 2, ' ');
        const std::string item(indent + 4, ' ');
        out << "{\n" << inner << "\"nodes\": ";
        const auto& nodes = m_document.SceneNodes();
        if (nodes.empty()) {
            out << "[]";
        } else {
            out << "[\n";
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                out << item;
                WriteNested(Node(*nodes[i]), indent + 4, out);
                out << (i + 1 < nodes.size() ? ",\n" : "\n");
            }
            out << inner << ']';
        }
        out << ",\n" << inner << "\"sequence\": ";
        WriteNested(Sequence(sequence), indent + 2, out);
        out << '\n' << std::string(indent, ' ') << '}';
    }

private:
    CTavrinJson Sequence(const CTavrinSequenceJsonWriter& sequence) const
    {
        if (!sequence)
            return nullptr;
        return sequence([this](const CTavrinSceneNode* node) { return NodeId(node); });
    }

private:
    CTavrinJson Node(const CTavrinSceneNode& node) const
    {
        CTavrinJson json = Object(8);
        json["id"] = NodeId(&node);
        json["type"] = NodeTypeName(node.EntityType());
        json["name"] = node.Name().toStdString();
        json["parent"] = NodeReference(node.Parent());
        const CTavrinTransform* local = node.LocalTransform();
        json["localMatrix"] = local ? MatrixJson(local->Matrix()) : CTavrinJson(nullptr);
        if (const auto* joint = dynamic_cast<const CTavrinSkeletonJoint*>(&node)) {
            const CTavrinMatrix* invBind = joint->InvBindMatrix();
            json["invBindMatrix"] = invBind ? MatrixJson(*invBind) : CTavrinJson(nullptr);
        }
        if (const auto* object = dynamic_cast<const CTavrin3DObject*>(&node)) {
            json["material"] = object->Material() ? Material(*object->Material()) : CTavrinJson(nullptr);
            json["geometry"] = object->Geometry() ? Geometry(*object->Geometry()) : CTavrinJson(nullptr);
            json["textureCoordinates"] =
                object->TextureCoordinatesTable() ? TextureCoordinates(*object->TextureCoordinatesTable())
                                                  : CTavrinJson(nullptr);
        }
        return json;
    }

    static CTavrinJson Material(const CTavrinMaterial& material)
    {
        CTavrinJson json = Object(3);
        json["name"] = material.Name().toStdString();
        CTavrinJson set = CTavrinJson::object();
        CTavrinJson textures = CTavrinJson::object();
        if (const CTavrinBasicMaterial* basic = material.BasicMaterial()) {
            const CTavrinMaterialValues& values = basic->Values();
            for (int i = 0; i < static_cast<int>(enumMaterialValue::Count); ++i) {
                const auto which = static_cast<enumMaterialValue>(i);
                if (!values.WasAssigned(which))
                    continue;
                const auto& value = values.Value(which);
                set[CTavrinMaterialValues::Name(which)] = CTavrinMaterialValues::Components(which) == 3
                                                              ? CTavrinJson({value[0], value[1], value[2]})
                                                              : CTavrinJson(value[0]);
            }
            for (const auto& [slot, texture] : basic->TextureSlots())
                if (!texture->IsEmpty())
                    textures[slot] = texture->FullFilename().toStdString();
        }
        json["set"] = std::move(set);
        json["textures"] = std::move(textures);
        return json;
    }

    CTavrinJson Geometry(const CTavrinGeometry& geometry) const
    {
        CTavrinJson json = Object(4);
        const CTavrinVerticiesTable* vertices = geometry.VerticiesTable();
        json["vertices"] = vertices ? VectorsJson(vertices->Vectors()) : CTavrinJson::array();
        const CTavrinVerticiesNormalsTable* normals = geometry.VerticiesNormalsTable();
        json["normals"] = normals ? VectorsJson(normals->Vectors()) : CTavrinJson(nullptr);
        json["triangles"] = nullptr;
        if (const CTavrinPolygonsTable* polygons = geometry.PolygonsTable()) {
            CTavrinJson triangles = Array(polygons->Triangles().size());
            for (const auto& t : polygons->Triangles())
                triangles.push_back({t[0], t[1], t[2]});
            json["triangles"] = std::move(triangles);
        }
        json["rig"] = geometry.RigGeometryTable() ? Rig(*geometry.RigGeometryTable()) : CTavrinJson(nullptr);
        return json;
    }

    CTavrinJson Rig(const CTavrinRigGeometryTable& rig) const
    {
        // The table orders joints by address; the contract orders them by
        // node id within each vertex.
        std::vector<std::pair<int, const CTavrinRigGeometryTable::Entry*>> entries;
        entries.reserve(rig.Entries().size());
        for (const auto& entry : rig.Entries())
            entries.emplace_back(NodeId(entry.joint), &entry);
        std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
            if (a.second->vertex != b.second->vertex)
                return a.second->vertex < b.second->vertex;
            return a.first < b.first;
        });
        CTavrinJson json = Array(entries.size());
        for (const auto& [jointId, entry] : entries)
            json.push_back({entry->vertex, jointId < 0 ? CTavrinJson(nullptr) : CTavrinJson(jointId), entry->weight});
        return json;
    }

    static CTavrinJson TextureCoordinates(const CTavrinTextureCoordinatesTable& table)
    {
        CTavrinJson json = Array(table.Coordinates().size());
        for (const CTavrinTextureCoordinate& c : table.Coordinates())
            json.push_back({c.U(), c.V()});
        return json;
    }

    const CTavrinDocument& m_document;
    std::unordered_map<const CTavrinSceneNode*, int> m_ids;
};

} // namespace

CTavrinJson DocumentToJson(const CTavrinDocument& document, const CTavrinSequenceJsonWriter& sequence)
{
    return DocumentWriter(document).Write(sequence);
}

CTavrinJson ImportRecordToJson(const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& sequence)
{
    CTavrinJson json = CTavrinJson::object();
    json["format"] = "tavrin-document/1";
    json["source"] = record.source.toStdString();
    CTavrinJson progress = CTavrinJson::array();
    for (const auto& [message, value] : record.progress)
        progress.push_back({message.toStdString(), value});
    json["progress"] = std::move(progress);
    json["document"] = record.document ? DocumentToJson(*record.document, sequence) : CTavrinJson(nullptr);
    return json;
}

void WriteImportRecordJson(const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& sequence,
                           std::ostream& out)
{
    CTavrinJson progress = CTavrinJson::array();
    for (const auto& [message, value] : record.progress)
        progress.push_back({message.toStdString(), value});
    out << "{\n  \"format\": \"tavrin-document/1\",\n  \"source\": ";
    WriteNested(CTavrinJson(record.source.toStdString()), 2, out);
    out << ",\n  \"progress\": ";
    WriteNested(progress, 2, out);
    out << ",\n  \"document\": ";
    if (record.document)
        DocumentWriter(*record.document).WriteText(sequence, 2, out);
    else
        out << "null";
    out << "\n}";
}

std::string ImportRecordToJsonText(const CTavrinImportRecord& record, const CTavrinSequenceJsonWriter& sequence)
{
    std::ostringstream text;
    WriteImportRecordJson(record, sequence, text);
    return text.str();
}

} // namespace Tavrin
