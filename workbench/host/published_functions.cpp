// The functions of the host interface that work on the host as it runs.
#include <algorithm>
#include <limits>

#include "acdocman.h"
#include "acedads.h"
#include "acutads.h"
#include "database/object_data.h"
#include "database/result_lists.h"
#include "host.h"
#include "lisp_bridge.h"

namespace {

using namespace workbench;
using host::Host;

void StoreVariable(const host::VariableValue& value, resbuf& result) {
    if (const auto* number = std::get_if<short>(&value)) {
        result.restype = RTSHORT;
        result.resval.rint = *number;
    } else if (const auto* real = std::get_if<double>(&value)) {
        result.restype = RTREAL;
        result.resval.rreal = *real;
    } else if (const auto* text = std::get_if<std::wstring>(&value)) {
        result.restype = RTSTR;
        result.resval.rstring = database::NewText(*text);
    } else {
        const auto& point = std::get<AcGePoint3d>(value);
        result.restype = RT3DPOINT;
        result.resval.rpoint[0] = point.x;
        result.resval.rpoint[1] = point.y;
        result.resval.rpoint[2] = point.z;
    }
}

bool ReadVariable(const resbuf& item, host::VariableValue& value) {
    switch (item.restype) {
        case RTSHORT:
            value = item.resval.rint;
            return true;
        case RTREAL:
            value = item.resval.rreal;
            return true;
        case RTSTR:
            if (item.resval.rstring != nullptr) {
                value = std::wstring(item.resval.rstring);
            }
            return item.resval.rstring != nullptr;
        case RTPOINT:
            value = AcGePoint3d(item.resval.rpoint[0], item.resval.rpoint[1], 0);
            return true;
        case RT3DPOINT:
            value = AcGePoint3d(item.resval.rpoint[0], item.resval.rpoint[1], item.resval.rpoint[2]);
            return true;
        default:
            return false;
    }
}

int SetResultOfCall(const std::function<lisp::Value(lisp::Interpreter&)>& make) {
    Host* host = Host::Current();
    host::LispCall* call = host == nullptr ? nullptr : host->Apps().CurrentCall();
    if (call == nullptr || host->Documents().Current() == nullptr) {
        return RTERROR;
    }
    call->result = make(host->Documents().Current()->Lisp());
    return RTNORM;
}

}  // namespace

AcApDocManager* acDocManagerPtr() {
    return Host::Current() == nullptr ? nullptr : &Host::Current()->Documents();
}

int acedGetVar(const ACHAR* name, resbuf* result) {
    host::VariableValue value;
    if (Host::Current() == nullptr || name == nullptr || result == nullptr ||
        !Host::Current()->Variables().Get(name, value)) {
        return RTERROR;
    }
    StoreVariable(value, *result);
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* value) {
    if (Host::Current() == nullptr || name == nullptr || value == nullptr) {
        return RTERROR;
    }
    if (Host::Current()->Variables().Find(name) == nullptr) {
        return RTERROR;
    }
    host::VariableValue converted;
    if (!ReadVariable(*value, converted)) {
        return RTREJ;
    }
    switch (Host::Current()->SetVariable(name, converted)) {
        case host::SetResult::kSet:
            return RTNORM;
        case host::SetResult::kUnknown:
        case host::SetResult::kNoDocument:
            return RTERROR;
        default:
            return RTREJ;
    }
}

int acedGetEnv(const ACHAR* name, ACHAR* value, std::size_t bufferLength) {
    if (Host::Current() == nullptr || name == nullptr || value == nullptr) {
        return RTERROR;
    }
    const auto& environment = Host::Current()->Environment();
    const auto found = environment.find(name);
    if (found == environment.end() || found->second.size() >= bufferLength) {
        return RTERROR;
    }
    *std::copy(found->second.begin(), found->second.end(), value) = 0;
    return RTNORM;
}

int acedSetEnv(const ACHAR* name, const ACHAR* value) {
    if (Host::Current() == nullptr || name == nullptr || *name == 0 || value == nullptr) {
        return RTERROR;
    }
    Host::Current()->Environment()[name] = value;
    return RTNORM;
}

int acedDefun(const ACHAR* name, int code) {
    Host* host = Host::Current();
    host::Application* application = host == nullptr ? nullptr : host->Apps().Running();
    host::Document* document = host == nullptr ? nullptr : host->Documents().Current();
    if (name == nullptr || *name == 0 || application == nullptr || document == nullptr) {
        return RTERROR;
    }
    document->Functions()[database::UpperCase(name)] = {application, code};
    document->Lisp().Define(name, 0, -1,
                            [host, application, code](lisp::Interpreter&, const lisp::Arguments& arguments) {
                                return host->Apps().Call(application, code, arguments);
                            });
    return RTNORM;
}

int acedUndef(const ACHAR* name, int code) {
    Host* host = Host::Current();
    host::Document* document = host == nullptr ? nullptr : host->Documents().Current();
    if (name == nullptr || document == nullptr) {
        return RTERROR;
    }
    const auto found = document->Functions().find(database::UpperCase(name));
    if (found == document->Functions().end() || found->second.code != code ||
        found->second.application != host->Apps().Running()) {
        return RTERROR;
    }
    document->Lisp().Undefine(name);
    document->Functions().erase(found);
    return RTNORM;
}

int acedRegFunc(int (*function)(), int code) {
    host::Application* application = Host::Current() == nullptr ? nullptr : Host::Current()->Apps().Running();
    if (application == nullptr || function == nullptr) {
        return RTERROR;
    }
    application->registeredFunctions[code] = function;
    return RTNORM;
}

int acedGetFunCode() {
    const host::LispCall* call = Host::Current() == nullptr ? nullptr : Host::Current()->Apps().CurrentCall();
    return call == nullptr ? RTERROR : call->code;
}

resbuf* acedGetArgs() {
    host::LispCall* call = Host::Current() == nullptr ? nullptr : Host::Current()->Apps().CurrentCall();
    return call == nullptr ? nullptr : call->arguments;
}

int acedRetVoid() {
    return SetResultOfCall([](lisp::Interpreter&) { return lisp::Value(lisp::Void()); });
}
int acedRetNil() {
    return SetResultOfCall([](lisp::Interpreter&) { return lisp::Value(); });
}
int acedRetT() {
    return SetResultOfCall([](lisp::Interpreter& lisp) { return lisp.True(); });
}
int acedRetInt(int value) {
    return SetResultOfCall([value](lisp::Interpreter&) { return lisp::Value(std::int32_t{value}); });
}
int acedRetReal(ads_real value) {
    return SetResultOfCall([value](lisp::Interpreter&) { return lisp::Value(value); });
}
int acedRetStr(const ACHAR* text) {
    return text == nullptr ? RTERROR
                           : SetResultOfCall([text](lisp::Interpreter&) { return lisp::Value(text); });
}
int acedRetPoint(const ads_point point) {
    return point == nullptr ? RTERROR : SetResultOfCall([point](lisp::Interpreter&) {
        return lisp::MakeList({point[0], point[1], point[2]});
    });
}
int acedRetVal(const resbuf* value) {
    return value == nullptr ? RTERROR : SetResultOfCall([value](lisp::Interpreter& lisp) {
        resbuf alone = *value;
        alone.rbnext = nullptr;
        return host::ValueFromItems(lisp, &alone);
    });
}
int acedRetList(const resbuf* list) {
    return SetResultOfCall([list](lisp::Interpreter& lisp) { return host::ValueFromItems(lisp, list); });
}

const ACHAR* acedGetAppName() {
    const host::Application* application =
        Host::Current() == nullptr ? nullptr : Host::Current()->Apps().Running();
    return application == nullptr ? L"" : application->path.c_str();
}
