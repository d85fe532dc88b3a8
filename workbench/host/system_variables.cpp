#include "system_variables.h"

#include "database/object_data.h"

namespace workbench::host {
namespace {

using database::UpperCase;

Variable Plain(const std::wstring& name, VariableValue initial, Variable::Scope scope) {
    Variable variable;
    variable.name = name;
    variable.initial = std::move(initial);
    variable.scope = scope;
    return variable;
}
Variable Ranged(const std::wstring& name, short value, Variable::Scope scope, short least, short greatest) {
    Variable variable = Plain(name, value, scope);
    variable.least = least;
    variable.greatest = greatest;
    return variable;
}
Variable SessionShort(const wchar_t* name, short value, short least, short greatest) {
    return Ranged(name, value, Variable::Scope::kSession, least, greatest);
}
Variable SessionText(const wchar_t* name, const wchar_t* value) {
    return Plain(name, std::wstring(value), Variable::Scope::kSession);
}
Variable FixedText(const wchar_t* name, const wchar_t* value) {
    Variable variable = SessionText(name, value);
    variable.readOnly = true;
    return variable;
}
Variable DocumentShort(const std::wstring& name, short value, short least, short greatest) {
    return Ranged(name, value, Variable::Scope::kDocument, least, greatest);
}
Variable DocumentReal(const std::wstring& name, double value) {
    return Plain(name, value, Variable::Scope::kDocument);
}
Variable DocumentText(const std::wstring& name) {
    return Plain(name, std::wstring(), Variable::Scope::kDocument);
}
Variable DocumentPoint(const std::wstring& name) {
    return Plain(name, AcGePoint3d(), Variable::Scope::kDocument);
}

bool IsInRange(const Variable& variable, const VariableValue& value) {
    if (variable.accepts && !variable.accepts(value)) {
        return false;
    }
    const auto* number = std::get_if<short>(&value);
    return number == nullptr || (*number >= variable.least && *number <= variable.greatest);
}

}  // namespace

SystemVariables::SystemVariables(std::function<VariableValues*()> documentValues)
    : m_documentValues(std::move(documentValues)) {}

void SystemVariables::Define(Variable variable) {
    std::wstring name = UpperCase(variable.name);
    m_variables[std::move(name)] = std::move(variable);
}

const Variable* SystemVariables::Find(const std::wstring& name) const {
    const auto found = m_variables.find(UpperCase(name));
    return found == m_variables.end() ? nullptr : &found->second;
}

bool SystemVariables::Get(const std::wstring& name, VariableValue& value) const {
    const Variable* variable = Find(name);
    if (variable == nullptr) {
        return false;
    }
    const bool ofDocument = variable->scope == Variable::Scope::kDocument;
    const VariableValues* values = ofDocument ? m_documentValues() : &m_sessionValues;
    if (values == nullptr) {
        return false;
    }
    if (variable->get) {
        value = variable->get();
        return true;
    }
    const auto found = values->find(variable->name);
    value = found == values->end() ? variable->initial : found->second;
    return true;
}

SetResult SystemVariables::Check(const std::wstring& name, const VariableValue& value) const {
    const Variable* variable = Find(name);
    if (variable == nullptr) {
        return SetResult::kUnknown;
    }
    if (variable->scope == Variable::Scope::kDocument && m_documentValues() == nullptr) {
        return SetResult::kNoDocument;
    }
    if (variable->readOnly) {
        return SetResult::kReadOnly;
    }
    if (value.index() != variable->initial.index()) {
        return SetResult::kWrongType;
    }
    return IsInRange(*variable, value) ? SetResult::kSet : SetResult::kOutOfRange;
}

SetResult SystemVariables::Set(const std::wstring& name, const VariableValue& value) {
    const SetResult result = Check(name, value);
    if (result != SetResult::kSet) {
        return result;
    }
    const Variable* variable = Find(name);
    if (variable->set) {
        variable->set(value);
    } else if (variable->scope == Variable::Scope::kDocument) {
        (*m_documentValues())[variable->name] = value;
    } else {
        m_sessionValues[variable->name] = value;
    }
    return result;
}

std::vector<Variable> PlainVariables() {
    std::vector<Variable> variables = {
        FixedText(L"ACADVER", L"24.2s"),
        SessionShort(L"ATTDIA", 0, 0, 1),
        SessionShort(L"ATTREQ", 1, 0, 1),
        SessionShort(L"CMDDIA", 1, 0, 1),
        SessionShort(L"CMDECHO", 1, 0, 1),
        SessionShort(L"EXPERT", 0, 0, 5),
        SessionShort(L"FILEDIA", 1, 0, 1),
        SessionShort(L"HIGHLIGHT", 1, 0, 1),
        SessionShort(L"MENUECHO", 0, 0, 15),
        SessionShort(L"NOMUTT", 0, 0, 1),
        SessionShort(L"OSMODE", 4133, 0, 32767),
        SessionShort(L"PICKFIRST", 1, 0, 1),
        SessionShort(L"SDI", 0, 0, 3),
        SessionShort(L"STARTUP", 0, 0, 3),
        SessionText(L"WSCURRENT", L"Drafting & Annotation"),
        DocumentShort(L"ATTMODE", 1, 0, 2),
        DocumentShort(L"FILLMODE", 1, 0, 1),
        DocumentShort(L"GRIDMODE", 0, 0, 1),
        DocumentShort(L"LUNITS", 2, 1, 5),
        DocumentShort(L"LUPREC", 4, 0, 8),
        DocumentShort(L"MEASUREMENT", 0, 0, 1),
        DocumentShort(L"ORTHOMODE", 0, 0, 1),
        DocumentShort(L"SNAPMODE", 0, 0, 1),
        DocumentReal(L"ANGBASE", 0),
        DocumentReal(L"LTSCALE", 1),
        DocumentReal(L"TEXTSIZE", 2.5),
        DocumentPoint(L"LASTPOINT"),
    };
    for (const wchar_t* number : {L"1", L"2", L"3", L"4", L"5"}) {
        variables.push_back(DocumentShort(std::wstring(L"USERI") + number, 0, -32767, 32767));
        variables.push_back(DocumentReal(std::wstring(L"USERR") + number, 0));
        variables.push_back(DocumentText(std::wstring(L"USERS") + number));
    }
    return variables;
}

}  // namespace workbench::host
