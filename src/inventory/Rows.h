#pragma once

#include "inventory/Arena.h"

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

namespace tavo {

/// The rows of a table that grows at its end. A row stays where it is.
template <class Row> class Rows
{
public:
    /// `arena` has the memory for the rows and outlives the table.
    explicit Rows(Arena& arena) : arena_(arena) {}
    ~Rows() { resize(0); }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    Row& operator[](std::size_t i) { return chunks_[i / chunkSize][i % chunkSize]; }
    const Row& operator[](std::size_t i) const { return chunks_[i / chunkSize][i % chunkSize]; }
    Row& back() { return (*this)[size_ - 1]; }

    template <class... Arguments> Row& emplace_back(Arguments&&... arguments)
    {
        if (size_ == chunks_.size() * chunkSize)
            chunks_.push_back(
                static_cast<Row*>(arena_.allocate(chunkSize * sizeof(Row), alignof(Row))));
        Row* const row = new (&(*this)[size_]) Row(std::forward<Arguments>(arguments)...);
        ++size_;
        return *row;
    }
    void push_back(const Row& row) { emplace_back(row); }
    void push_back(Row&& row) { emplace_back(std::move(row)); }

    /// Removes the rows after the first `size`; there are at least so many.
    void resize(std::size_t size)
    {
        if constexpr (!std::is_trivially_destructible_v<Row>)
            for (std::size_t i = size; i < size_; ++i)
                (*this)[i].~Row();
        size_ = size;
    }

    /// Goes over the rows in the order in which they were added.
    template <class Table, class Element> class Iterator
    {
    public:
        Iterator(Table& table, std::size_t index) : table_(&table), index_(index) {}
        Element& operator*() const { return (*table_)[index_]; }
        Iterator& operator++()
        {
            ++index_;
            return *this;
        }
        bool operator==(const Iterator& other) const { return index_ == other.index_; }

    private:
        Table* table_;
        std::size_t index_;
    };

    auto begin() { return Iterator<Rows, Row>(*this, 0); }
    auto end() { return Iterator<Rows, Row>(*this, size_); }
    auto begin() const { return Iterator<const Rows, const Row>(*this, 0); }
    auto end() const { return Iterator<const Rows, const Row>(*this, size_); }

private:
    static constexpr std::size_t chunkSize = 32;

    Arena& arena_;
    std::vector<Row*> chunks_;
    std::size_t size_ = 0;
};

} // namespace tavo
