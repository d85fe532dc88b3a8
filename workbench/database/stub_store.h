// The places of a database's objects, in the order in which the objects came.
#pragma once

#include <bit>
#include <cstddef>
#include <iterator>
#include <memory>
#include <vector>

#include "stub.h"

namespace workbench::database {

// The address of a place never changes. Places that were added one after the other lie one after the other,
// so that a walk over a large drawing goes through memory forwards.
class StubStore {
  public:
    AcDbStub& Add() {
        if (m_size == CapacityOf(m_chunks.size())) {
            m_chunks.push_back(std::make_unique<AcDbStub[]>(kFirstChunk << m_chunks.size()));
        }
        return At(m_size++);
    }

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    AcDbStub& operator[](std::size_t index) { return At(index); }
    const AcDbStub& operator[](std::size_t index) const { return At(index); }

    template <class Store, class Stub>
    class Walk {
      public:
        using iterator_category = std::forward_iterator_tag;
        using difference_type = std::ptrdiff_t;
        using value_type = Stub;
        using pointer = Stub*;
        using reference = Stub&;

        Walk() = default;
        Walk(Store* store, std::size_t index) : m_store(store), m_index(index) {}
        Stub& operator*() const { return (*m_store)[m_index]; }
        Stub* operator->() const { return &(*m_store)[m_index]; }
        Walk& operator++() {
            ++m_index;
            return *this;
        }
        Walk operator++(int) {
            Walk before = *this;
            ++m_index;
            return before;
        }
        friend bool operator==(const Walk&, const Walk&) = default;

      private:
        Store* m_store = nullptr;
        std::size_t m_index = 0;
    };
    using iterator = Walk<StubStore, AcDbStub>;
    using const_iterator = Walk<const StubStore, const AcDbStub>;
    iterator begin() { return {this, 0}; }
    iterator end() { return {this, m_size}; }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, m_size}; }

  private:
    // Each chunk is twice as long as the one before: the number of a place, counted from kFirstChunk, has the
    // number of its chunk in its length.
    static constexpr std::size_t kFirstChunk = 64;
    static std::size_t CapacityOf(std::size_t chunks) { return (kFirstChunk << chunks) - kFirstChunk; }
    AcDbStub& At(std::size_t index) const {
        const std::size_t number = index + kFirstChunk;
        const auto chunk = static_cast<std::size_t>(std::bit_width(number) - std::bit_width(kFirstChunk));
        return m_chunks[chunk][number - (kFirstChunk << chunk)];
    }

    std::vector<std::unique_ptr<AcDbStub[]>> m_chunks;
    std::size_t m_size = 0;
};

}  // namespace workbench::database
