#include "lisp_bridge.h"

#include <cstring>
#include <limits>
#include <utility>

#include "acutads.h"
#include "adscodes.h"
#include "database/result_lists.h"
#include "host.h"

namespace workbench::host {
namespace {

using database::ListBuilder;

constexpr std::size_t kFlatPoint = 2;
constexpr std::size_t kSpacePoint = 3;

bool IsPoint(const std::vector<lisp::Value>& items) {
    if (items.size() != kFlatPoint && items.size() != kSpacePoint) {
        return false;
    }
    for (const lisp::Value& item : items) {
        if (item.AsReal() == nullptr) {
            return false;
        }
    }
    return true;
}

void AppendValue(ListBuilder& list, const lisp::Value& value);

void AppendList(ListBuilder& list, const lisp::Value& value) {
    const lisp::Cons* pair = value.AsCons();
    const bool dotted = pair->cdr.IsTrue() && pair->cdr.AsCons() == nullptr;
    if (dotted) {
        list.Append(RTLB);
        AppendValue(list, pair->car);
        AppendValue(list, pair->cdr);
        list.Append(RTDOTE);
        return;
    }
    const std::vector<lisp::Value> items = lisp::ItemsOf(value);
    if (IsPoint(items)) {
        resbuf& point = list.Append(items.size() == kSpacePoint ? RT3DPOINT : RTPOINT);
        for (std::size_t i = 0; i < items.size(); ++i) {
            point.resval.rpoint[i] = *items[i].AsReal();
        }
        return;
    }
    list.Append(RTLB);
    for (const lisp::Value& item : items) {
        AppendValue(list, item);
    }
    list.Append(RTLE);
}

void AppendInteger(ListBuilder& list, std::int32_t number) {
    const bool fits =
        number >= std::numeric_limits<short>::min() && number <= std::numeric_limits<short>::max();
    resbuf& item = list.Append(fits ? RTSHORT : RTLONG);
    if (fits) {
        item.resval.rint = static_cast<short>(number);
    } else {
        item.resval.rlong = number;
    }
}

void AppendValue(ListBuilder& list, const lisp::Value& value) {
    if (value.IsNil()) {
        list.Append(RTNIL);
    } else if (const auto* integer = value.AsInteger()) {
        AppendInteger(list, *integer);
    } else if (const auto* real = value.AsReal()) {
        list.Append(RTREAL).resval.rreal = *real;
    } else if (const auto* text = value.AsText()) {
        list.AppendText(RTSTR, *text);
    } else if (const auto* name = value.AsEntityName()) {
        std::memcpy(list.Append(RTENAME).resval.rlname, name->words, sizeof name->words);
    } else if (value.AsCons() != nullptr) {
        AppendList(list, value);
    } else if (value.AsSymbol() != nullptr && value.AsSymbol()->name == L"T") {
        list.Append(RTT);
    } else {
        throw lisp::Error{L"bad argument type: " + lisp::ToText(value, true)};
    }
}

lisp::Value PointValue(const resbuf& item, std::size_t coordinates) {
    std::vector<lisp::Value> items;
    for (std::size_t i = 0; i < coordinates; ++i) {
        items.emplace_back(item.resval.rpoint[i]);
    }
    return lisp::MakeList(items);
}

lisp::Value AtomOf(lisp::Interpreter& lisp, const resbuf& item) {
    switch (item.restype) {
        case RTSHORT:
            return std::int32_t{item.resval.rint};
        case RTLONG:
            return item.resval.rlong;
        case RTREAL:
        case RTANG:
        case RTORINT:
            return item.resval.rreal;
        case RTSTR:
            return item.resval.rstring == nullptr ? lisp::Value(L"") : lisp::Value(item.resval.rstring);
        case RTPOINT:
            return PointValue(item, kFlatPoint);
        case RT3DPOINT:
            return PointValue(item, kSpacePoint);
        case RTENAME:
        case RTPICKS: {
            lisp::EntityName name;
            std::memcpy(name.words, item.resval.rlname, sizeof name.words);
            return name;
        }
        case RTT:
            return lisp.True();
        case RTVOID:
            return lisp::Void();
        default:
            return {};
    }
}

// The values up to the end of the list or a closing item; `at` is moved behind that. Parentheses are followed
// without recursion, as what applications hand over may be nested to any depth.
std::vector<lisp::Value> ReadValues(lisp::Interpreter& lisp, const resbuf* at) {
    std::vector<std::vector<lisp::Value>> open(1);
    for (; at != nullptr; at = at->rbnext) {
        if (at->restype == RTLB) {
            open.emplace_back();
            continue;
        }
        const bool closes = (at->restype == RTLE || at->restype == RTDOTE) && open.size() > 1;
        if (!closes) {
            open.back().push_back(AtomOf(lisp, *at));
            continue;
        }
        std::vector<lisp::Value> items = std::move(open.back());
        open.pop_back();
        lisp::Value tail;
        if (at->restype == RTDOTE && items.size() > 1) {
            tail = std::move(items.back());
            items.pop_back();
        }
        open.back().push_back(lisp::MakeList(items, std::move(tail)));
    }
    while (open.size() > 1) {
        lisp::Value unclosed = lisp::MakeList(open.back());
        open.pop_back();
        open.back().push_back(std::move(unclosed));
    }
    return std::move(open.front());
}

class HostSurroundings : public lisp::Surroundings {
  public:
    HostSurroundings(Host& host, Document& document) : m_host(host), m_document(document) {}

    void Print(const std::wstring& text) override { m_host.Print(text); }

    std::optional<lisp::Value> GetVariable(const std::wstring& name) override {
        VariableValue value;
        return m_host.Variables().Get(name, value) ? std::optional(ValueFromVariable(value)) : std::nullopt;
    }

    bool SetVariable(const std::wstring& name, const lisp::Value& value) override {
        const Variable* variable = m_host.Variables().Find(name);
        VariableValue converted;
        return variable != nullptr && VariableFromValue(value, variable->initial, converted) &&
               m_host.SetVariable(name, converted) == SetResult::kSet;
    }

    std::optional<std::wstring> GetEnvironment(const std::wstring& name) override {
        const auto found = m_host.Environment().find(name);
        return found == m_host.Environment().end() ? std::nullopt : std::optional(found->second);
    }
    void SetEnvironment(const std::wstring& name, const std::wstring& value) override {
        m_host.Environment()[name] = value;
    }

    std::wstring FindFile(const std::wstring& name) override { return m_host.FindSupportFile(name); }
    bool ReadFile(const std::wstring& path, std::wstring& text) override {
        return m_host.TheFiles().ReadText(path, text);
    }
    bool RunCommand(const std::vector<std::wstring>& input) override {
        return m_document.Line().RunPieces(input);
    }
    bool LoadApplication(const std::wstring& path) override {
        return m_host.Apps().loadModule(path.c_str(), true, false);
    }
    bool UnloadApplication(const std::wstring& path) override {
        return m_host.Apps().unloadModule(path.c_str(), false);
    }
    bool IsCancelled() override { return m_host.TheSurface().IsCancelled(); }

  private:
    Host& m_host;
    Document& m_document;
};

}  // namespace

resbuf* ListFromValues(const lisp::Arguments& values) {
    ListBuilder list;
    try {
        for (const lisp::Value& value : values) {
            AppendValue(list, value);
        }
    } catch (const lisp::Error&) {
        acutRelRb(list.Take());
        throw;
    }
    return list.Take();
}

lisp::Value ValueFromItems(lisp::Interpreter& lisp, const resbuf* items) {
    const std::vector<lisp::Value> values = ReadValues(lisp, items);
    return values.size() == 1 ? values.front() : lisp::MakeList(values);
}

lisp::Value ValueFromVariable(const VariableValue& value) {
    if (const auto* number = std::get_if<short>(&value)) {
        return std::int32_t{*number};
    }
    if (const auto* real = std::get_if<double>(&value)) {
        return *real;
    }
    if (const auto* text = std::get_if<std::wstring>(&value)) {
        return *text;
    }
    const auto& point = std::get<AcGePoint3d>(value);
    return lisp::MakeList({point.x, point.y, point.z});
}

bool VariableFromValue(const lisp::Value& value, const VariableValue& like, VariableValue& result) {
    if (std::holds_alternative<short>(like)) {
        const auto* number = value.AsInteger();
        const bool fits = number != nullptr && *number >= std::numeric_limits<short>::min() &&
                          *number <= std::numeric_limits<short>::max();
        if (fits) {
            result = static_cast<short>(*number);
        }
        return fits;
    }
    if (std::holds_alternative<double>(like)) {
        if (value.IsNumber()) {
            result = value.ToReal();
        }
        return value.IsNumber();
    }
    if (std::holds_alternative<std::wstring>(like)) {
        if (value.AsText() != nullptr) {
            result = *value.AsText();
        }
        return value.AsText() != nullptr;
    }
    if (!value.IsList()) {
        return false;
    }
    const std::vector<lisp::Value> items = lisp::ItemsOf(value);
    const bool isPoint = (items.size() == kFlatPoint || items.size() == kSpacePoint) && items[0].IsNumber() &&
                         items[1].IsNumber() && items.back().IsNumber();
    if (isPoint) {
        result = AcGePoint3d(items[0].ToReal(), items[1].ToReal(), items.size() > 2 ? items[2].ToReal() : 0);
    }
    return isPoint;
}

std::unique_ptr<lisp::Surroundings> MakeSurroundings(Host& host, Document& document) {
    return std::make_unique<HostSurroundings>(host, document);
}

}  // namespace workbench::host
