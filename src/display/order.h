// The present order of a list, as stretches of it.
#pragma once

#include <algorithm>
#include <array>

namespace VEK
{

/// The order in which a list is drawn: up to so many stretches as there are classes, each of which runs through the
/// numbers of the items forwards or backwards.
class DrawOrder
{
public:
    struct Run {
        int first; ///< place of its first number
        int count;
        int step; ///< 1 or -1
    };

    /// @param numbers of the items; null: each its own
    explicit DrawOrder(const int* numbers) : m_numbers(numbers) {}

    /// Adds the places from `first` on.
    void add(int first, int count, bool backwards)
    {
        m_runs[static_cast<std::size_t>(m_count++)] =
            backwards ? Run{first + count - 1, count, -1} : Run{first, count, 1};
    }

    bool isAsStored() const { return !m_numbers; }

    void reverse()
    {
        std::reverse(m_runs.begin(), m_runs.begin() + m_count);
        for (Run& run : m_runs)
            run = {run.first + (run.count - 1) * run.step, run.count, -run.step};
    }

    /// Visits the numbers of the items until told to stop.
    /// @param visit is given a number and a function of a distance, which gives the number so many places later, or the
    ///     last one of the stretch; it returns whether to go on
    template <class Visit>
    void visit(Visit&& visit) const
    {
        if (m_numbers)
            walk(visit, [this](int place) { return m_numbers[place]; });
        else
            walk(visit, [](int place) { return place; });
    }

private:
    template <class Visit, class Number>
    void walk(Visit& visit, Number number) const
    {
        for (int r = 0; r < m_count; ++r) {
            const Run run = m_runs[static_cast<std::size_t>(r)];
            const int end = run.first + run.count * run.step, last = end - run.step;
            for (int place = run.first; place != end; place += run.step) {
                const auto ahead = [&](int distance) {
                    const int then = place + distance * run.step;
                    return number((then - last) * run.step > 0 ? last : then);
                };
                if (!visit(number(place), ahead))
                    return;
            }
        }
    }

    const int* m_numbers;
    std::array<Run, 6> m_runs{};
    int m_count = 0;
};

} // namespace VEK
