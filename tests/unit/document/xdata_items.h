// A list of xdata items made by hand, with any codes and any values, as no host would hand it out.
#pragma once

#include <deque>
#include <string>

#include "adsdef.h"

// The items of a full record, by their places in it.
enum XDataPlace {
    kAppName,
    kSpec,
    kMain,
    kBranch,
    kIso,
    kLine,
    kElectric,
    kProject,
    kExtraLong,
    kShort1,
    kShort2,
    kTagText,
    kApp,
    kXDataPlaces
};

class XDataItems {
  public:
    XDataItems() = default;
    XDataItems(XDataItems&&) = default;  // a copy would link to the items of its original

    XDataItems& Short(int value, short code = 1070) {
        Add(code).resval.rint = static_cast<short>(value);
        return *this;
    }
    XDataItems& Long(int value, short code = 1071) {
        Add(code).resval.rlong = value;
        return *this;
    }
    XDataItems& Real(double value, short code = 1040) {
        Add(code).resval.rreal = value;
        return *this;
    }
    XDataItems& Text(const std::wstring& value, short code = 1000) {
        Add(code).resval.rstring = m_texts.emplace_back(value).data();
        return *this;
    }
    XDataItems& NullText(short code = 1000) {
        Add(code).resval.rstring = nullptr;
        return *this;
    }
    XDataItems& App() { return Text(L"KAL-VOR Software - TESSARC", 1001); }

    // Null if there are no items.
    const resbuf* Get() const { return m_items.empty() ? nullptr : &m_items.front(); }
    size_t GetCount() const { return m_items.size(); }
    resbuf& At(size_t index) { return m_items[index]; }

    // Cuts the list behind `count` items.
    void Cut(size_t count) {
        m_items.resize(count);
        Link();
    }
    void Drop(size_t index) {
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(index));
        Link();
    }

  private:
    resbuf& Add(short code) {
        resbuf* last = m_items.empty() ? nullptr : &m_items.back();
        resbuf& item = m_items.emplace_back();
        item.restype = code;
        if (last != nullptr) last->rbnext = &item;
        return item;
    }
    // Erasing from a deque moves items, so all links are set anew.
    void Link() {
        for (size_t i = 0; i < m_items.size(); ++i) {
            m_items[i].rbnext = i + 1 < m_items.size() ? &m_items[i + 1] : nullptr;
        }
    }

    std::deque<resbuf> m_items;
    std::deque<std::wstring> m_texts;
};
