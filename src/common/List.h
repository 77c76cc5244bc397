#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace velna {

/// An array with bounds 0 to n, used from 1; entry 0 exists and is never used by the model.
template <class T>
class Array1 {
public:
    /// Bounds 0 to `n`, all entries fresh.
    void allocate(int n) { items_.assign(static_cast<std::size_t>(n) + 1, T{}); }

    /// Bounds 0 to `n`, the entries up to there kept.
    void resize(int n) { items_.resize(static_cast<std::size_t>(n) + 1); }

    /// The upper bound; -1 before the first allocation.
    int upper() const { return static_cast<int>(items_.size()) - 1; }

    T& operator()(int i) { return items_[static_cast<std::size_t>(i)]; }
    const T& operator()(int i) const { return items_[static_cast<std::size_t>(i)]; }

    /// Entry 0 first.
    const T* data() const { return items_.data(); }
    T* data() { return items_.data(); }

    friend bool operator==(const Array1&, const Array1&) = default;

private:
    std::vector<T> items_;
};

/// A grid with bounds 0 to n by 0 to m, contiguous by rows, used from (1, 1).
template <class T>
class Array2 {
public:
    /// Bounds 0 to `n` by 0 to `m`, all entries fresh.
    void allocate(int n, int m) {
        // The memory first: bounds never promise what is not there.
        items_.assign((static_cast<std::size_t>(n) + 1) * (static_cast<std::size_t>(m) + 1), T{});
        rows_.upper = n;
        columns_.upper = m;
    }

    /// Upper bounds; -1 before the first allocation, and where the entries have been moved away.
    int rows() const { return rows_.upper; }
    int columns() const { return columns_.upper; }

    T& operator()(int i, int j) { return row(i)[j]; }
    const T& operator()(int i, int j) const { return row(i)[j]; }

    /// Row `i`, from its entry 0.
    T* row(int i) {
        return items_.data() +
               static_cast<std::size_t>(i) * (static_cast<std::size_t>(columns()) + 1);
    }
    const T* row(int i) const {
        return items_.data() +
               static_cast<std::size_t>(i) * (static_cast<std::size_t>(columns()) + 1);
    }

private:
    /// A bound that goes where the entries go.
    struct Bound {
        Bound() = default;
        Bound(const Bound&) = default;
        Bound(Bound&& other) noexcept : upper(std::exchange(other.upper, -1)) {}
        Bound& operator=(const Bound&) = default;
        Bound& operator=(Bound&& other) noexcept {
            upper = std::exchange(other.upper, -1);
            return *this;
        }
        ~Bound() = default;
        int upper = -1;
    };

    std::vector<T> items_;
    Bound rows_;
    Bound columns_;
};

/// A 1-based list that owns its objects. Its capacity is apart from the counter of its user: an
/// object past the counter stays until a later entry replaces it. `fill` promises entries that are
/// made only when they are first asked for to be changed, so that a large count in a file costs
/// nothing by itself. Promised entries are all alike: who only looks sees the pattern that they
/// will be copied from. The list is a value: two are equal when all their entries are.
template <class T>
class OwnedList {
public:
    OwnedList() = default;
    OwnedList(const OwnedList& other) { *this = other; }
    OwnedList(OwnedList&&) = default;
    OwnedList& operator=(OwnedList&&) = default;
    ~OwnedList() = default;
    OwnedList& operator=(const OwnedList& other) {
        if (this == &other) return *this;
        items_.clear();
        items_.reserve(other.items_.size());
        for (const auto& item : other.items_) items_.push_back(copyOf(item));
        pattern_ = copyOf(other.pattern_);
        scratch_.reset();
        return *this;
    }

    int size() const { return static_cast<int>(items_.size()); }

    /// Entry `i` to be changed; a promised one becomes an object of its own.
    T& operator()(int i) {
        auto& slot = items_[static_cast<std::size_t>(i) - 1];
        if (!slot) slot = copyOf(pattern_);
        return *slot;
    }

    /// Entry `i`, or what it is promised to be.
    const T& operator()(int i) const {
        const auto& slot = items_[static_cast<std::size_t>(i) - 1];
        return slot ? *slot : *pattern_;
    }

    /// Entry `i`; where that is only promised, one object that stands for all such. To look at and
    /// to draw: what is changed in it reaches no entry.
    T& alike(int i) {
        const auto& slot = items_[static_cast<std::size_t>(i) - 1];
        if (slot) return *slot;
        if (!scratch_) scratch_ = copyOf(pattern_);
        return *scratch_;
    }
    const T& alike(int i) const { return (*this)(i); }

    /// Calls `visit(i, entry)` for each of the first `n` entries that `wanted(i)` chooses; of the
    /// promised ones among them for the first alone, with what stands for all.
    template <class Wanted, class Visit>
    void forEachDistinct(int n, Wanted wanted, Visit visit) {
        eachDistinct(*this, n, wanted, visit);
    }
    template <class Wanted, class Visit>
    void forEachDistinct(int n, Wanted wanted, Visit visit) const {
        eachDistinct(*this, n, wanted, visit);
    }

    /// The same for all of the first `n` entries, as `visit(entry)` or `visit(i, entry)`.
    template <class Visit>
    void forEachDistinct(int n, Visit visit) {
        eachDistinct(*this, n, visit);
    }
    template <class Visit>
    void forEachDistinct(int n, Visit visit) const {
        eachDistinct(*this, n, visit);
    }

    /// Whether entry `i` is only promised: of those, `forEachDistinct` visits the first for all.
    bool promised(int i) const { return !items_[static_cast<std::size_t>(i) - 1]; }

    /// Keeps the first `n` entries; further ones are promised to be copies of `pattern`.
    void resize(int n, T pattern) {
        if (n < size()) items_.resize(static_cast<std::size_t>(n));
        if (!pattern_ || !(*pattern_ == pattern)) {
            settle();
            pattern_ = std::make_unique<T>(std::move(pattern));
        }
        items_.resize(static_cast<std::size_t>(n));
    }

    /// `n` entries, all promised to be copies of `pattern`.
    void fill(int n, T pattern) {
        items_.clear();
        resize(n, std::move(pattern));
    }

    /// Puts `item` in slot `i`, dropping what was there.
    void put(int i, T item) {
        items_[static_cast<std::size_t>(i) - 1] = std::make_unique<T>(std::move(item));
    }

    void clear() {
        items_.clear();
        scratch_.reset();
    }

    friend bool operator==(const OwnedList& one, const OwnedList& other) {
        if (one.size() != other.size()) return false;
        for (int i = 1; i <= one.size(); ++i) {
            if (one.promised(i) && other.promised(i) && i > 1 && one.promised(i - 1) &&
                other.promised(i - 1))
                continue;
            if (!(one(i) == other(i))) return false;
        }
        return true;
    }

private:
    using Slot = std::unique_ptr<T>;

    static Slot copyOf(const Slot& slot) { return slot ? std::make_unique<T>(*slot) : nullptr; }

    template <class List, class Wanted, class Visit>
    static void eachDistinct(List& list, int n, Wanted wanted, Visit visit) {
        bool promisedSeen = false;
        for (int i = 1; i <= n && i <= list.size(); ++i) {
            if ((list.promised(i) && promisedSeen) || !wanted(i)) continue;
            promisedSeen = promisedSeen || list.promised(i);
            visit(i, list.alike(i));
        }
    }

    template <class List, class Visit>
    static void eachDistinct(List& list, int n, Visit visit) {
        const auto all = [](int) { return true; };
        using Entry = decltype(list.alike(1));
        if constexpr (std::is_invocable_v<Visit, int, Entry>) {
            eachDistinct(list, n, all, visit);
        } else {
            eachDistinct(list, n, all, [&](int, Entry entry) { visit(entry); });
        }
    }

    /// Promised entries belong to the pattern that promised them.
    void settle() {
        for (auto& slot : items_)
            if (!slot) slot = copyOf(pattern_);
        scratch_.reset();
    }

    std::vector<Slot> items_;
    Slot pattern_;  // what every entry without an object of its own is like
    Slot scratch_;
};

/// Objects by number, from 1. One is there when it is asked for to be changed, and stays where it
/// is when more are; `renew` forgets what was known of an object that another one replaces.
template <class T>
class NumberedList {
public:
    T& operator()(int i) {
        const auto index = static_cast<std::size_t>(i);
        if (items_.size() <= index) items_.resize(index + 1);
        return items_[index];
    }
    /// Object `i`, or one just made where nobody has asked for it yet.
    const T& operator()(int i) const {
        return static_cast<std::size_t>(i) < items_.size() ? items_[static_cast<std::size_t>(i)]
                                                           : fresh_;
    }
    void renew(int i, const T& item = {}) { (*this)(i) = item; }
    /// How far objects have been asked for.
    int size() const { return items_.empty() ? 0 : static_cast<int>(items_.size()) - 1; }
    void clear() { items_.clear(); }

private:
    std::deque<T> items_;  // leaves its entries where they are when it grows
    T fresh_{};
};

}  // namespace velna
