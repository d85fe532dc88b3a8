#include "result_lists.h"

#include <algorithm>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>
#include <utility>

#include "adscodes.h"
#include "database_data.h"
#include "fatal.h"
#include "item_pool.h"
#include "services.h"

namespace workbench::database {
namespace {

// Every item that was handed out and not freed. Never destroyed: modules free their lists while they end.
ItemPool& LiveItems() {
    static auto& items = *new ItemPool;
    return items;
}

// As many bytes as an item can count.
constexpr std::size_t kMostBytes = std::numeric_limits<short>::max();

enum class Held { kNothing, kShort, kLong, kInt64, kReal, kPoint, kText, kName, kBinary, kUnknown };

Held HeldByGroupCode(int code) {
    switch (acdbGroupCodeToType(code)) {
        case AcDb::kDwgText:
        case AcDb::kDwgHandle:
            return Held::kText;
        case AcDb::kDwgReal:
            return Held::kReal;
        case AcDb::kDwg3Real:
            return Held::kPoint;
        case AcDb::kDwgInt8:
        case AcDb::kDwgInt16:
            return Held::kShort;
        case AcDb::kDwgInt32:
            return Held::kLong;
        case AcDb::kDwgInt64:
            return Held::kInt64;
        case AcDb::kDwgBChunk:
            return Held::kBinary;
        case AcDb::kDwgSoftPointerId:
        case AcDb::kDwgHardPointerId:
        case AcDb::kDwgSoftOwnershipId:
        case AcDb::kDwgHardOwnershipId:
            return Held::kName;
        default:
            return Held::kUnknown;
    }
}

Held HeldBy(int type) {
    switch (type) {
        case RTNONE:
        case RTVOID:
        case RTLB:
        case RTLE:
        case RTDOTE:
        case RTNIL:
        case RTT:
            return Held::kNothing;
        case RTSHORT:
        case RTMODELESS:
            return Held::kShort;
        case RTLONG:
            return Held::kLong;
        case RTINT64:
            return Held::kInt64;
        case RTREAL:
        case RTANG:
        case RTORINT:
            return Held::kReal;
        case RTPOINT:
        case RT3DPOINT:
            return Held::kPoint;
        case RTSTR:
        case RTDXF0:
            return Held::kText;
        case RTENAME:
        case RTPICKS:
            return Held::kName;
        default:
            return HeldByGroupCode(type);
    }
}

char* NewBytes(const char* bytes, short count) {
    auto* copy = static_cast<char*>(std::malloc(count > 0 ? static_cast<std::size_t>(count) : 1));
    if (count > 0 && bytes != nullptr) {
        std::memcpy(copy, bytes, static_cast<std::size_t>(count));
    }
    return copy;
}

bool ReadArgument(resbuf& item, std::va_list& arguments) {
    switch (HeldBy(item.restype)) {
        case Held::kNothing:
            return true;
        case Held::kShort:
            item.resval.rint = static_cast<short>(va_arg(arguments, int));
            return true;
        case Held::kLong:
            item.resval.rlong = va_arg(arguments, int);
            return true;
        case Held::kInt64:
            item.resval.mnInt64 = va_arg(arguments, long long);
            return true;
        case Held::kReal:
            item.resval.rreal = va_arg(arguments, double);
            return true;
        case Held::kPoint: {
            const double* point = va_arg(arguments, const double*);
            std::memcpy(item.resval.rpoint, point, sizeof item.resval.rpoint);
            return true;
        }
        case Held::kText: {
            const ACHAR* text = va_arg(arguments, const ACHAR*);
            item.resval.rstring = NewText(text == nullptr ? L"" : text);
            return true;
        }
        case Held::kName: {
            const long long* name = va_arg(arguments, const long long*);
            std::memcpy(item.resval.rlname, name, sizeof item.resval.rlname);
            return true;
        }
        case Held::kBinary: {
            const ads_binary* binary = va_arg(arguments, const ads_binary*);
            item.resval.rbinary.clen = binary->clen;
            item.resval.rbinary.buf = NewBytes(binary->buf, binary->clen);
            return true;
        }
        case Held::kUnknown:
            break;
    }
    return false;
}

void StorePoint(const AcGePoint3d& point, ads_real* coordinates) {
    coordinates[0] = point.x;
    coordinates[1] = point.y;
    coordinates[2] = point.z;
}

// Texts as they are, handles as their digits.
std::wstring TextOfItem(const DataItem& item) {
    const auto* handle = std::get_if<std::int64_t>(&item.value);
    return handle == nullptr ? std::get<std::wstring>(item.value)
                             : HandleText(static_cast<std::uint64_t>(*handle));
}

// An object's id as a name; 0 if the drawing has no such object.
long long NameOfHandle(std::int64_t handle, const AcDbDatabase* database) {
    if (database == nullptr) {
        return 0;
    }
    const auto& byHandle = DataOf(*database).byHandle;
    const auto found = byHandle.find(static_cast<std::uint64_t>(handle));
    return found == byHandle.end() ? 0 : reinterpret_cast<long long>(found->second);
}

void StoreItem(const DataItem& item, const AcDbDatabase* database, resbuf& result) {
    switch (HeldByGroupCode(item.code)) {
        case Held::kShort:
            result.resval.rint = static_cast<short>(std::get<std::int64_t>(item.value));
            break;
        case Held::kLong:
            result.resval.rlong = static_cast<Adesk::Int32>(std::get<std::int64_t>(item.value));
            break;
        case Held::kInt64:
            result.resval.mnInt64 = std::get<std::int64_t>(item.value);
            break;
        case Held::kReal:
            result.resval.rreal = std::get<double>(item.value);
            break;
        case Held::kPoint:
            StorePoint(std::get<AcGePoint3d>(item.value), result.resval.rpoint);
            break;
        case Held::kText:
            result.resval.rstring = NewText(TextOfItem(item));
            break;
        case Held::kBinary: {
            const auto& bytes = std::get<Bytes>(item.value);
            const auto count = static_cast<short>(std::min(bytes.size(), kMostBytes));
            result.resval.rbinary.clen = count;
            result.resval.rbinary.buf = NewBytes(reinterpret_cast<const char*>(bytes.data()), count);
            break;
        }
        case Held::kName:
            result.resval.rlname[0] = NameOfHandle(std::get<std::int64_t>(item.value), database);
            break;
        default:
            break;
    }
}

bool ReadItemText(const resbuf& result, DataItem& item) {
    if (result.resval.rstring == nullptr) {
        return false;
    }
    if (acdbGroupCodeToType(result.restype) != AcDb::kDwgHandle) {
        item.value = std::wstring(result.resval.rstring);
        return true;
    }
    std::uint64_t handle = 0;
    const bool good = ParseHandle(result.resval.rstring, handle);
    item.value = static_cast<std::int64_t>(handle);
    return good;
}

bool ReadItem(const resbuf& result, DataItem& item) {
    item.code = result.restype;
    switch (HeldByGroupCode(result.restype)) {
        case Held::kShort:
            item.value = std::int64_t{result.resval.rint};
            return true;
        case Held::kLong:
            item.value = std::int64_t{result.resval.rlong};
            return true;
        case Held::kInt64:
            item.value = std::int64_t{result.resval.mnInt64};
            return true;
        case Held::kReal:
            item.value = result.resval.rreal;
            return true;
        case Held::kPoint:
            item.value =
                AcGePoint3d(result.resval.rpoint[0], result.resval.rpoint[1], result.resval.rpoint[2]);
            return true;
        case Held::kText:
            return ReadItemText(result, item);
        case Held::kBinary: {
            const auto& binary = result.resval.rbinary;
            if (binary.clen < 0 || (binary.clen > 0 && binary.buf == nullptr)) {
                return false;
            }
            item.value = Bytes(binary.buf, binary.buf + binary.clen);
            return true;
        }
        case Held::kName: {
            const auto* stub = reinterpret_cast<const AcDbStub*>(result.resval.rlname[0]);
            item.value = stub == nullptr ? std::int64_t{0} : static_cast<std::int64_t>(stub->handle);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace

ACHAR* NewText(std::wstring_view text) {
    auto* copy = static_cast<ACHAR*>(std::malloc((text.size() + 1) * sizeof(ACHAR)));
    std::wmemcpy(copy, text.data(), text.size());
    copy[text.size()] = 0;
    return copy;
}

resbuf& ListBuilder::Append(int type) {
    resbuf* item = acutNewRb(type);
    (m_last == nullptr ? m_first : m_last->rbnext) = item;
    m_last = item;
    return *item;
}

resbuf* ListBuilder::Take() {
    m_last = nullptr;
    return std::exchange(m_first, nullptr);
}

LentList* LentList::s_innermost = nullptr;

LentList::LentList(resbuf* list) : m_list(list), m_outer(std::exchange(s_innermost, this)) {}

LentList::~LentList() {
    s_innermost = m_outer;
    acutRelRb(m_list);
}

void LentList::OnRelease(const resbuf* list) {
    for (LentList* lent = s_innermost; lent != nullptr; lent = lent->m_outer) {
        if (lent->m_list == list) {
            lent->m_list = nullptr;
        }
    }
}

resbuf* ListFromItems(const DataItems& items, const AcDbDatabase* database) {
    ListBuilder list;
    for (const DataItem& item : items) {
        StoreItem(item, database, list.Append(item.code));
    }
    return list.Take();
}

resbuf* ListOfApplication(const DataItems& items, const std::wstring& name, const AcDbDatabase* database) {
    ListBuilder list;
    bool inside = false;
    for (const DataItem& item : items) {
        if (item.code == kApplicationNameCode) {
            const auto& found = std::get<std::wstring>(item.value);
            // Nearly always they are written alike.
            inside = found == name || UpperCase(found) == UpperCase(name);
        }
        if (inside) {
            StoreItem(item, database, list.Append(item.code));
        }
    }
    return list.Take();
}

Acad::ErrorStatus ItemsFromList(const resbuf* list, DataItems& items) {
    items.clear();
    for (const resbuf* at = list; at != nullptr; at = at->rbnext) {
        DataItem item;
        if (!ReadItem(*at, item)) {
            items.clear();
            return Acad::eInvalidResBuf;
        }
        items.push_back(std::move(item));
    }
    return Acad::eOk;
}

bool ParseHandle(std::wstring_view text, std::uint64_t& value) {
    value = 0;
    if (text.empty() || text.size() > 16) {
        return false;
    }
    std::uint64_t number = 0;
    for (const wchar_t letter : text) {
        unsigned digit = 0;
        if (letter >= L'0' && letter <= L'9') {
            digit = static_cast<unsigned>(letter - L'0');
        } else if (letter >= L'A' && letter <= L'F') {
            digit = static_cast<unsigned>(letter - L'A') + 10;
        } else if (letter >= L'a' && letter <= L'f') {
            digit = static_cast<unsigned>(letter - L'a') + 10;
        } else {
            return false;
        }
        number = number * 16 + digit;
    }
    value = number;
    return true;
}

std::wstring HandleText(std::uint64_t value) {
    std::wstring text;
    do {
        text.insert(text.begin(), L"0123456789ABCDEF"[value % 16]);
        value /= 16;
    } while (value != 0);
    return text;
}

long LiveResultBuffers() {
    return LiveItems().Count();
}

}  // namespace workbench::database

using namespace workbench::database;

Acad::ErrorStatus acutNewString(const ACHAR* text, ACHAR*& copy) {
    copy = text == nullptr ? nullptr : NewText(text);
    return Acad::eOk;
}

void acutDelString(ACHAR*& text) {
    std::free(text);
    text = nullptr;
}

resbuf* acutNewRb(int type) {
    resbuf* item = LiveItems().Take();
    item->restype = static_cast<short>(type);
    return item;
}

int acutRelRb(resbuf* list) {
    LentList::OnRelease(list);
    while (list != nullptr) {
        if (!LiveItems().Contains(list)) {
            Fatal(L"acutRelRb: an item was freed twice, or is none of the host's");
        }
        resbuf* item = std::exchange(list, list->rbnext);
        const Held held = HeldBy(item->restype);
        if (held == Held::kText) {
            std::free(item->resval.rstring);
        } else if (held == Held::kBinary) {
            std::free(item->resval.rbinary.buf);
        }
        LiveItems().GiveBack(item);
    }
    return RTNORM;
}

resbuf* acutBuildList(int type, ...) {
    std::va_list arguments;
    va_start(arguments, type);
    ListBuilder list;
    bool good = true;
    for (; good && type != 0 && type != RTNONE; type = good ? va_arg(arguments, int) : 0) {
        good = HeldBy(type) != Held::kUnknown && ReadArgument(list.Append(type), arguments);
    }
    va_end(arguments);
    resbuf* built = list.Take();
    if (!good) {
        acutRelRb(built);
        return nullptr;
    }
    return built;
}
