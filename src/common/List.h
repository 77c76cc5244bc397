#pragma once

#include <cstddef>
#include <functional>
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
        rows_ = n;
        columns_ = m;
        items_.assign((static_cast<std::size_t>(n) + 1) * (static_cast<std::size_t>(m) + 1), T{});
    }

    /// Upper bounds; -1 before the first allocation.
    int rows() const { return rows_; }
    int columns() const { return columns_; }

    T& operator()(int i, int j) { return row(i)[j]; }
    const T& operator()(int i, int j) const { return row(i)[j]; }

    /// Row `i`, from its entry 0.
    T* row(int i) {
        return items_.data() +
               static_cast<std::size_t>(i) * (static_cast<std::size_t>(columns_) + 1);
    }
    const T* row(int i) const {
        return items_.data() +
               static_cast<std::size_t>(i) * (static_cast<std::size_t>(columns_) + 1);
    }

private:
    std::vector<T> items_;
    int rows_ = -1;
    int columns_ = -1;
};

/// A 1-based list that owns its objects. Its capacity is apart from the counter of its user: an
/// object past the counter stays until a later entry replaces it. `fill` promises entries that are
/// made only when they are first asked for, so that a large count in a file costs nothing by
/// itself. Promised entries are all alike: what only looks at them or draws them takes one for all.
template <class T>
class OwnedList {
public:
    using Maker = std::function<std::unique_ptr<T>()>;

    int size() const { return static_cast<int>(items_.size()); }

    T& operator()(int i) {
        auto& slot = items_[static_cast<std::size_t>(i) - 1];
        if (!slot) slot = make_();
        return *slot;
    }

    /// Entry `i`; where that is only promised, the one object that stands for all such. To look at
    /// and to draw: what is changed in it reaches no entry.
    T& alike(int i) {
        const auto& slot = items_[static_cast<std::size_t>(i) - 1];
        if (slot) return *slot;
        if (!standIn_) standIn_ = make_();
        return *standIn_;
    }

    /// Calls `visit(i, entry)` for each of the first `n` entries that `wanted(i)` chooses; of the
    /// promised ones among them for the first alone, with what stands for all.
    template <class Wanted, class Visit>
    void forEachDistinct(int n, Wanted wanted, Visit visit) {
        bool promisedSeen = false;
        for (int i = 1; i <= n && i <= size(); ++i) {
            if ((promised(i) && promisedSeen) || !wanted(i)) continue;
            promisedSeen = promisedSeen || promised(i);
            visit(i, alike(i));
        }
    }

    /// The same for all of the first `n` entries, as `visit(entry)` or `visit(i, entry)`.
    template <class Visit>
    void forEachDistinct(int n, Visit visit) {
        const auto all = [](int) { return true; };
        if constexpr (std::is_invocable_v<Visit, int, T&>) {
            forEachDistinct(n, all, visit);
        } else {
            forEachDistinct(n, all, [&](int, T& entry) { visit(entry); });
        }
    }

    /// Whether entry `i` is only promised: of those, `forEachDistinct` visits the first for all.
    bool promised(int i) const { return !items_[static_cast<std::size_t>(i) - 1]; }

    /// Keeps the first `n` entries; a new one is made by `make` when it is first asked for.
    void resize(int n, Maker make) {
        if (n < size()) items_.resize(static_cast<std::size_t>(n));
        settle();
        make_ = std::move(make);
        items_.resize(static_cast<std::size_t>(n));
    }

    /// `n` entries, all new, each made by `make` when it is first asked for.
    void fill(int n, Maker make) {
        items_.clear();
        resize(n, std::move(make));
    }

    /// Puts `item` in slot `i`, dropping what was there.
    void put(int i, std::unique_ptr<T> item) {
        items_[static_cast<std::size_t>(i) - 1] = std::move(item);
    }

    void clear() {
        items_.clear();
        standIn_.reset();
    }

private:
    /// Promised entries belong to the maker that promised them.
    void settle() {
        for (auto& slot : items_)
            if (!slot) slot = make_();
        standIn_.reset();
    }

    std::vector<std::unique_ptr<T>> items_;
    std::unique_ptr<T> standIn_;  // for all entries without an object of their own
    Maker make_;
};

}  // namespace velna
