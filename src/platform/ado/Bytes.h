#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace Quillane {

/// A sequence of bytes that grows at its end. It grows by `realloc`, which moves large blocks by
/// remapping their pages, and does not initialise the new bytes. A vector does neither.
class Bytes {
public:
    /// Space for `count` more bytes at the end. The caller fills them.
    char* Extend(std::size_t count) {
        if (size_ + count > capacity_)
            Grow(size_ + count);
        char* added = data_.get() + size_;
        size_ += count;
        return added;
    }

    char* At(std::size_t offset) { return data_.get() + offset; }
    const char* At(std::size_t offset) const { return data_.get() + offset; }
    std::size_t Size() const { return size_; }
    std::size_t Capacity() const { return capacity_; }

    /// Removes all bytes and keeps the memory.
    void Clear() { size_ = 0; }

    /// Frees the memory that holds no bytes.
    void Trim() {
        if (capacity_ > size_ && size_ > 0)
            Resize(size_);
    }

private:
    struct Release {
        void operator()(char* block) const { std::free(block); }
    };

    void Grow(std::size_t needed) {
        constexpr std::size_t smallest = 256;
        Resize(std::max({needed, capacity_ * 2, smallest}));
    }

    // By default, the C library raises the size from which a block gets its own pages to the size
    // of the largest block freed so far. The next large result would then be copied as it grows,
    // and its freed memory would stay with the process.
    static void KeepLargeBlocksApart() {
#ifdef __GLIBC__
        constexpr int large = 1 << 20;
        static const int kept = mallopt(M_MMAP_THRESHOLD, large);
        static_cast<void>(kept);
#endif
    }

    void Resize(std::size_t capacity) {
        KeepLargeBlocksApart();
        auto* block = static_cast<char*>(std::realloc(data_.get(), capacity));
        if (!block)
            throw std::bad_alloc();
        static_cast<void>(data_.release());
        data_.reset(block);
        capacity_ = capacity;
    }

    std::unique_ptr<char, Release> data_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace Quillane
