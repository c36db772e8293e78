#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "cave/tiles.h"

/// Some columns of a row of the cave, from left to right. In a lively cave no processor can guess which cells a scan
/// has to handle, and guessing wrong costs more than all the rest; so the columns are chosen for the whole row without
/// a branch and kept as a set of bits that is then walked through.
class RowColumns {
 public:
  /// For each column whether it is in; columns from the cave's width on must be false.
  using Chosen = std::array<bool, (kMaxWidth / 64 + 1) * 64>;

  explicit RowColumns(const Chosen& chosen) {
    static_assert(std::endian::native == std::endian::little, "eight flags are gathered from the lowest byte up");
    constexpr std::uint64_t kGather = 0x0102040810204080;  // moves the lowest bit of byte i to bit 56 + i
    for (std::size_t first = 0; first < chosen.size(); first += 8) {
      std::uint64_t eight;
      std::memcpy(&eight, &chosen[first], sizeof eight);
      bits_[first / 64] |= (eight * kGather >> 56) << first % 64;
    }
  }

  /// Walks through the columns; a copy of the set that loses one column after the other.
  class Iterator {
   public:
    explicit Iterator(const RowColumns& columns) : bits_(columns.bits_) { SkipEmptyWord(); }
    int operator*() const { return base_ + std::countr_zero(bits_[0]); }
    Iterator& operator++() {
      bits_[0] &= bits_[0] - 1;
      SkipEmptyWord();
      return *this;
    }
    bool operator!=(std::nullptr_t) const { return bits_[0] != 0; }

   private:
    void SkipEmptyWord() {
      if (bits_[0] != 0 || base_ != 0) return;
      bits_[0] = bits_[1];
      base_ = 64;
    }

    std::array<std::uint64_t, 2> bits_;
    int base_ = 0;
  };

  Iterator begin() const { return Iterator(*this); }
  std::nullptr_t end() const { return nullptr; }

 private:
  std::array<std::uint64_t, 2> bits_{};
};
