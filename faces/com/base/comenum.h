#pragma once

#include "faces/com/base/comobject.h"

#include <algorithm>
#include <cwchar>
#include <new>
#include <objbase.h>
#include <ocidl.h>
#include <utility>
#include <vector>

namespace pixmo::com {

/// How an enumerator hands an item over to its caller, and takes back one that could not be handed over.
template <class Item>
struct EnumItem {
    static void copy(const Item& from, Item& to) { to = from; }
    static void discard(Item&) {}
};

template <class Interface>
struct EnumItem<Interface*> {
    static void copy(Interface* from, Interface*& to) {
        to = from;
        if (from)
            from->AddRef();
    }
    static void discard(Interface*& item) {
        if (item)
            item->Release();
    }
};

template <>
struct EnumItem<CONNECTDATA> {
    static void copy(const CONNECTDATA& from, CONNECTDATA& to) {
        to = from;
        to.pUnk->AddRef();
    }
    static void discard(CONNECTDATA& item) { item.pUnk->Release(); }
};

template <>
struct EnumItem<OLEVERB> {
    static void copy(const OLEVERB& from, OLEVERB& to) {
        to = from;
        const size_t bytes = (std::wcslen(from.lpszVerbName) + 1) * sizeof(wchar_t);
        to.lpszVerbName = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
        if (!to.lpszVerbName)
            throw std::bad_alloc();
        std::copy_n(from.lpszVerbName, bytes / sizeof(wchar_t), to.lpszVerbName);
    }
    static void discard(OLEVERB& item) { CoTaskMemFree(item.lpszVerbName); }
};

template <class EnumInterface, class Item>
class ComEnum;

template <class EnumInterface, class Item>
class EnumPart : public EnumInterface {
public:
    using Exposes = Exposed<EnumInterface>;
    using Items = std::vector<Item>;

    EnumPart(Items& items, size_t& start, ComPtr<IUnknown>& owner)
        : items_(items), next_(start), owner_(owner) {
        for (Item& item : items_)
            EnumItem<Item>::copy(Item(item), item);
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
        if (!items || (!fetched && count != 1))
            return E_POINTER;
        const ULONG available = std::min(count, static_cast<ULONG>(items_.size() - next_));
        ULONG done = 0;
        try {
            for (; done < available; ++done)
                EnumItem<Item>::copy(items_[next_ + done], items[done]);
        } catch (const std::bad_alloc&) {
            while (done > 0)
                EnumItem<Item>::discard(items[--done]);
            return E_OUTOFMEMORY;
        }
        next_ += available;
        if (fetched)
            *fetched = available;
        return available == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        const ULONG available = std::min(count, static_cast<ULONG>(items_.size() - next_));
        next_ += available;
        return available == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override {
        next_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(EnumInterface** copy) override {
        if (!copy)
            return E_POINTER;
        try {
            *copy = makeObject<ComEnum<EnumInterface, Item>>(items_, next_, owner_).detach();
            return S_OK;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

protected:
    ~EnumPart() {
        for (Item& item : items_)
            EnumItem<Item>::discard(item);
    }

private:
    Items items_;
    size_t next_;
    ComPtr<IUnknown> owner_;
};

/// Walks over a copy of some items; `owner`, if any, lives as long as the walk.
template <class EnumInterface, class Item>
class ComEnum final : public ComObject<EnumPart<EnumInterface, Item>> {
public:
    explicit ComEnum(std::vector<Item> items, size_t start = 0, ComPtr<IUnknown> owner = nullptr)
        : ComObject<EnumPart<EnumInterface, Item>>(nullptr, items, start, owner) {}
};

} // namespace pixmo::com
