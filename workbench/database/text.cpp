#include <algorithm>

#include "dbents.h"
#include "dbmtext.h"
#include "object_access.h"
#include "result_lists.h"

using namespace workbench::database;

namespace {

constexpr std::int16_t kInvisibleFlag = 1;
constexpr std::int16_t kConstantFlag = 2;

template <class Data>
Acad::ErrorStatus SetText(AcDbObject& object, std::wstring Data::*member, const ACHAR* text) {
    return text == nullptr ? Acad::eInvalidInput : WriteMember(object, member, std::wstring(text));
}

template <class Data>
Acad::ErrorStatus SetFlag(AcDbObject& object, std::int16_t flag, bool value) {
    const std::int16_t others = ReadData<Data>(object).flags & ~flag;
    return WriteMember(object, &Data::flags, others | (value ? flag : 0));
}

template <class Data>
Acad::ErrorStatus SetTagText(AcDbObject& object, const ACHAR* tag) {
    if (tag == nullptr || *tag == 0 || std::wstring_view(tag).find(L' ') != std::wstring_view::npos) {
        return Acad::eInvalidInput;
    }
    return WriteMember(object, &Data::tag, UpperCase(tag));
}

Acad::ErrorStatus SetPositive(AcDbObject& object, double TextData::*member, double value) {
    return value > 0 ? WriteMember(object, member, value) : Acad::eInvalidInput;
}

}  // namespace

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbText, AcDbEntity, ACRX_T("TEXT"))
AcDbText::AcDbText() : AcDbText(new TextData) {}
AcDbText::AcDbText(AcDbImpObject* data) : AcDbEntity(data) {}
AcGePoint3d AcDbText::position() const {
    return ReadData<TextData>(*this).position;
}
Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& p) {
    return WriteMember(*this, &TextData::position, p);
}
AcGePoint3d AcDbText::alignmentPoint() const {
    return ReadData<TextData>(*this).alignmentPoint;
}
Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& p) {
    return WriteMember(*this, &TextData::alignmentPoint, p);
}
double AcDbText::rotation() const {
    return ReadData<TextData>(*this).rotation;
}
Acad::ErrorStatus AcDbText::setRotation(double angle) {
    return WriteMember(*this, &TextData::rotation, angle);
}
double AcDbText::height() const {
    return ReadData<TextData>(*this).height;
}
Acad::ErrorStatus AcDbText::setHeight(double height) {
    return SetPositive(*this, &TextData::height, height);
}
double AcDbText::widthFactor() const {
    return ReadData<TextData>(*this).widthFactor;
}
Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    return SetPositive(*this, &TextData::widthFactor, factor);
}
double AcDbText::oblique() const {
    return ReadData<TextData>(*this).oblique;
}
AcDb::TextHorzMode AcDbText::horizontalMode() const {
    return static_cast<AcDb::TextHorzMode>(
        std::clamp<int>(ReadData<TextData>(*this).horizontal, 0, AcDb::kTextFit));
}
Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
    return WriteMember(*this, &TextData::horizontal, mode);
}
AcDb::TextVertMode AcDbText::verticalMode() const {
    return static_cast<AcDb::TextVertMode>(
        std::clamp<int>(ReadData<TextData>(*this).vertical, 0, AcDb::kTextTop));
}
Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
    return WriteMember(*this, &TextData::vertical, mode);
}
AcDbObjectId AcDbText::textStyle() const {
    return IdOf(ReadData<TextData>(*this).style);
}
Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId id) {
    return DataAs<TextStyleData>(id.stub()) == nullptr ? Acad::eWrongObjectType
                                                       : WriteMember(*this, &TextData::style, id.stub());
}
AcGeVector3d AcDbText::normal() const {
    return ReadData<TextData>(*this).normal;
}
ACHAR* AcDbText::textString() const {
    return NewText(ReadData<TextData>(*this).text);
}
const ACHAR* AcDbText::textStringConst() const {
    return ReadData<TextData>(*this).text.c_str();
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    return SetText(*this, &TextData::text, text);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbAttributeDefinition, AcDbText, ACRX_T("ATTDEF"))
AcDbAttributeDefinition::AcDbAttributeDefinition() : AcDbText(new AttributeDefinitionData) {}
ACHAR* AcDbAttributeDefinition::tag() const {
    return NewText(ReadData<AttributeDefinitionData>(*this).tag);
}
const ACHAR* AcDbAttributeDefinition::tagConst() const {
    return ReadData<AttributeDefinitionData>(*this).tag.c_str();
}
Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
    return SetTagText<AttributeDefinitionData>(*this, tag);
}
ACHAR* AcDbAttributeDefinition::prompt() const {
    return NewText(ReadData<AttributeDefinitionData>(*this).prompt);
}
const ACHAR* AcDbAttributeDefinition::promptConst() const {
    return ReadData<AttributeDefinitionData>(*this).prompt.c_str();
}
Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    return SetText(*this, &AttributeDefinitionData::prompt, prompt);
}
bool AcDbAttributeDefinition::isInvisible() const {
    return (ReadData<AttributeDefinitionData>(*this).flags & kInvisibleFlag) != 0;
}
Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(bool invisible) {
    return SetFlag<AttributeDefinitionData>(*this, kInvisibleFlag, invisible);
}
bool AcDbAttributeDefinition::isConstant() const {
    return (ReadData<AttributeDefinitionData>(*this).flags & kConstantFlag) != 0;
}
Acad::ErrorStatus AcDbAttributeDefinition::setConstant(bool constant) {
    return SetFlag<AttributeDefinitionData>(*this, kConstantFlag, constant);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbAttribute, AcDbText, ACRX_T("ATTRIB"))
AcDbAttribute::AcDbAttribute() : AcDbText(new AttributeData) {}
ACHAR* AcDbAttribute::tag() const {
    return NewText(ReadData<AttributeData>(*this).tag);
}
const ACHAR* AcDbAttribute::tagConst() const {
    return ReadData<AttributeData>(*this).tag.c_str();
}
Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
    return SetTagText<AttributeData>(*this, tag);
}
bool AcDbAttribute::isInvisible() const {
    return (ReadData<AttributeData>(*this).flags & kInvisibleFlag) != 0;
}
Acad::ErrorStatus AcDbAttribute::setInvisible(bool invisible) {
    return SetFlag<AttributeData>(*this, kInvisibleFlag, invisible);
}
bool AcDbAttribute::isConstant() const {
    return (ReadData<AttributeData>(*this).flags & kConstantFlag) != 0;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbMText, AcDbEntity, ACRX_T("MTEXT"))
AcDbMText::AcDbMText() : AcDbEntity(new MTextData) {}
AcGePoint3d AcDbMText::location() const {
    return ReadData<MTextData>(*this).location;
}
Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& p) {
    return WriteMember(*this, &MTextData::location, p);
}
double AcDbMText::textHeight() const {
    return ReadData<MTextData>(*this).height;
}
Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
    return height > 0 ? WriteMember(*this, &MTextData::height, height) : Acad::eInvalidInput;
}
double AcDbMText::width() const {
    return ReadData<MTextData>(*this).width;
}
double AcDbMText::rotation() const {
    return ReadData<MTextData>(*this).rotation;
}
int AcDbMText::attachment() const {
    return ReadData<MTextData>(*this).attachment;
}
ACHAR* AcDbMText::contents() const {
    return NewText(ReadData<MTextData>(*this).text);
}
int AcDbMText::setContents(const ACHAR* text) {
    return SetText(*this, &MTextData::text, text) == Acad::eOk ? 1 : 0;
}
AcDbObjectId AcDbMText::textStyle() const {
    return IdOf(ReadData<MTextData>(*this).style);
}
