// base::EnumSet_T<E, N>: a set of the values 0 to N-1 of an enumeration E, held as bits. Used
// for property flags (base::EnumSet_T<PropFlag, 25>) and change kinds.
//   EnumSet_T<PropFlag, 25> flags{kPropFlagReadOnly};  flags.Contains(kPropFlagReadOnly) => true
//   flags.Add(static_cast<PropFlag>(40))                => ignored (outside 0..24)
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <vector>

namespace base
{

template <typename E, std::size_t N> class EnumSet_T
{
    static_assert(std::is_enum_v<E>, "EnumSet_T holds values of an enumeration");
    static_assert(N > 0 && N <= 64, "EnumSet_T holds at most 64 values");

public:
    static constexpr std::size_t kSize = N;

    constexpr EnumSet_T() noexcept = default;
    EnumSet_T(std::initializer_list<E> values) noexcept
    {
        for (E value : values)
        {
            Add(value);
        }
    }

    // Whether `value` lies in 0..N-1, the range the set can hold.
    static constexpr bool IsInRange(E value) noexcept
    {
        const auto n = static_cast<long long>(value);
        return n >= 0 && n < static_cast<long long>(N);
    }

    // Adds `value`; a value outside the range is ignored (false).
    bool Add(E value) noexcept
    {
        if (!IsInRange(value))
        {
            return false;
        }
        mBits.set(Index(value));
        return true;
    }
    // Removes `value` (nothing happens when it is not in the set).
    void Remove(E value) noexcept
    {
        if (IsInRange(value))
        {
            mBits.reset(Index(value));
        }
    }
    // Adds or removes `value`.
    void Set(E value, bool present) noexcept
    {
        if (present)
        {
            Add(value);
        }
        else
        {
            Remove(value);
        }
    }
    bool Contains(E value) const noexcept { return IsInRange(value) && mBits.test(Index(value)); }
    bool IsEmpty() const noexcept { return mBits.none(); }
    std::size_t Count() const noexcept { return mBits.count(); }
    void Clear() noexcept { mBits.reset(); }

    // The members in ascending order.
    std::vector<E> GetValues() const
    {
        std::vector<E> values;
        for (std::size_t i = 0; i < N; ++i)
        {
            if (mBits.test(i))
            {
                values.push_back(static_cast<E>(i));
            }
        }
        return values;
    }

    // The set as bits (value v is bit v), and back; bits from N upwards are dropped.
    std::uint64_t ToBits() const noexcept { return mBits.to_ullong(); }
    static EnumSet_T FromBits(std::uint64_t bits) noexcept
    {
        EnumSet_T set;
        if constexpr (N < 64)
        {
            bits &= (std::uint64_t{1} << N) - 1;
        }
        set.mBits = std::bitset<N>(bits);
        return set;
    }

    EnumSet_T& operator|=(const EnumSet_T& other) noexcept
    {
        mBits |= other.mBits;
        return *this;
    }
    EnumSet_T& operator&=(const EnumSet_T& other) noexcept
    {
        mBits &= other.mBits;
        return *this;
    }
    friend EnumSet_T operator|(EnumSet_T a, const EnumSet_T& b) noexcept { return a |= b; }
    friend EnumSet_T operator&(EnumSet_T a, const EnumSet_T& b) noexcept { return a &= b; }
    friend bool operator==(const EnumSet_T& a, const EnumSet_T& b) noexcept
    {
        return a.mBits == b.mBits;
    }

private:
    static constexpr std::size_t Index(E value) noexcept { return static_cast<std::size_t>(value); }

    std::bitset<N> mBits;
};

} // namespace base
