#include "drawing_file/objects_section.h"

#include "drawing_file/object_reader.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kDictionary = "DICTIONARY";
constexpr std::string_view kDictionaryWithDefault = "ACDBDICTIONARYWDFLT";

void ReadDictionary(RecordBody& body, ReadContext& context) {
    database::Builder& builder = context.builder;
    const bool isRoot =
        body.Owner() == 0 && builder.Data().namedObjects == nullptr && body.Type() == kDictionary;
    auto& dictionary =
        isRoot ? builder.NamedObjects(body.Handle())
               : builder.Object<database::DictionaryData>(body.Handle(), builder.Reference(body.Owner()));
    dictionary.dxfName = context.Text(body.Type(), body.Line());
    FillObject(body, context, dictionary);
}

template <class Data>
Data& ReadObject(RecordBody& body, ReadContext& context) {
    database::Builder& builder = context.builder;
    auto& object = builder.Object<Data>(body.Handle(), builder.Reference(body.Owner()));
    FillObject(body, context, object);
    return object;
}

}  // namespace

void ReadObjects(const FileTree& tree, ReadContext& context) {
    const Section* section = tree.Find("OBJECTS");
    if (section == nullptr) return;
    for (const Record& record : section->records) {
        RecordBody body(record);
        if (record.type == kDictionary || record.type == kDictionaryWithDefault) {
            ReadDictionary(body, context);
        } else if (record.type == "XRECORD") {
            ReadObject<database::XrecordData>(body, context);
        } else {
            auto& object = ReadObject<database::ProxyObjectData>(body, context);
            object.dxfName = context.Text(record.type, record.line);
        }
    }
}

}  // namespace workbench::drawing_file
