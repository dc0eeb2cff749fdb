#include <reportcore/sequences.h>

#include <algorithm>
#include <cstddef>

namespace ReportCore {

namespace {

/// With more differences the shortest way from one sequence to the other isn't looked for: its cost is quadratic.
constexpr int MOST_DIFFERENCES = 1000;

/// A part of both sequences.
struct Window
{
    int leftBegin;
    int leftEnd;
    int rightBegin;
    int rightEnd;

    int LeftSize() const { return leftEnd - leftBegin; }
    int RightSize() const { return rightEnd - rightBegin; }
    bool IsEmpty() const { return LeftSize() == 0 || RightSize() == 0; }
};

/// A pair of equal items.
struct Pair
{
    int left;
    int right;
};

class Matching
{
public:
    Matching(const std::vector<int>& left, const std::vector<int>& right) : m_left(left), m_right(right) {}

    std::vector<CommonRun> Find()
    {
        Match({0, static_cast<int>(m_left.size()), 0, static_cast<int>(m_right.size())}, true);
        return m_runs;
    }

private:
    bool AreEqual(int left, int right) const
    {
        return m_left[static_cast<std::size_t>(left)] == m_right[static_cast<std::size_t>(right)];
    }

    void Add(int left, int right, int size)
    {
        if (size == 0)
            return;
        if (!m_runs.empty() && m_runs.back().left + m_runs.back().size == left &&
            m_runs.back().right + m_runs.back().size == right)
            m_runs.back().size += size;
        else
            m_runs.push_back({left, right, size});
    }

    void Match(Window window, bool withAnchors)
    {
        int front = 0;
        while (front < std::min(window.LeftSize(), window.RightSize()) &&
               AreEqual(window.leftBegin + front, window.rightBegin + front))
            ++front;
        Add(window.leftBegin, window.rightBegin, front);
        window.leftBegin += front;
        window.rightBegin += front;
        int back = 0;
        while (back < std::min(window.LeftSize(), window.RightSize()) &&
               AreEqual(window.leftEnd - 1 - back, window.rightEnd - 1 - back))
            ++back;
        window.leftEnd -= back;
        window.rightEnd -= back;
        if (!window.IsEmpty() && !MatchShortest(window) && withAnchors)
            MatchBetweenAnchors(window);
        Add(window.leftEnd, window.rightEnd, back);
    }

    // --- The shortest way: on diagonal k of the grid of both windows, `reach` is how far to the left window's end one
    // comes with so many differences.

    class Reach
    {
    public:
        explicit Reach(int differences)
            : m_offset(differences), m_values(2 * static_cast<std::size_t>(differences) + 1, -1)
        {
        }
        int& operator[](int diagonal) { return m_values[IndexOf(diagonal)]; }
        int At(int diagonal) const
        {
            const bool isInside = diagonal >= -m_offset && diagonal <= m_offset;
            return isInside ? m_values[IndexOf(diagonal)] : -1;
        }

    private:
        std::size_t IndexOf(int diagonal) const
        {
            const int index = m_offset + diagonal;
            return static_cast<std::size_t>(index);
        }

        int m_offset;
        std::vector<int> m_values;
    };

    /// How far one gets on the diagonal with one difference more than `before`.
    static int Step(const Reach& before, int diagonal)
    {
        return std::max(before.At(diagonal + 1), before.At(diagonal - 1) + 1);
    }

    static bool ComesFromAbove(const Reach& before, int diagonal)
    {
        return before.At(diagonal + 1) >= before.At(diagonal - 1) + 1;
    }

    int Slide(const Window& window, int left, int diagonal) const
    {
        while (left < window.LeftSize() && left - diagonal < window.RightSize() &&
               AreEqual(window.leftBegin + left, window.rightBegin + left - diagonal))
            ++left;
        return left;
    }

    /// Returns false, with nothing matched, when there are too many differences.
    bool MatchShortest(const Window& window)
    {
        const int goal = window.LeftSize() - window.RightSize();
        std::vector<Reach> reaches;
        for (int differences = 0; differences <= MOST_DIFFERENCES; ++differences) {
            Reach reach(differences);
            for (int diagonal = -differences; diagonal <= differences; diagonal += 2) {
                const int start = differences == 0 ? 0 : Step(reaches.back(), diagonal);
                // What has left the grid on either side is of no use.
                if (start < 0 || start > window.LeftSize() || start - diagonal > window.RightSize() ||
                    start - diagonal < 0)
                    continue;
                reach[diagonal] = Slide(window, start, diagonal);
            }
            reaches.push_back(reach);
            if (reaches.back().At(goal) == window.LeftSize()) {
                AddWay(window, reaches);
                return true;
            }
        }
        return false;
    }

    void AddWay(const Window& window, const std::vector<Reach>& reaches)
    {
        std::vector<CommonRun> runs;
        int diagonal = window.LeftSize() - window.RightSize();
        for (std::size_t i = reaches.size(); i-- > 0;) {
            const int end = reaches[i].At(diagonal);
            const int start = i == 0 ? 0 : Step(reaches[i - 1], diagonal);
            runs.push_back({window.leftBegin + start, window.rightBegin + start - diagonal, end - start});
            if (i > 0)
                diagonal += ComesFromAbove(reaches[i - 1], diagonal) ? 1 : -1;
        }
        for (auto run = runs.rbegin(); run != runs.rend(); ++run)
            Add(run->left, run->right, run->size);
    }

    // --- Anchors: items that occur once in each window.

    void MatchBetweenAnchors(const Window& window)
    {
        Window gap = {window.leftBegin, window.leftBegin, window.rightBegin, window.rightBegin};
        for (const Pair& anchor : Ascending(FindAnchors(window))) {
            gap.leftEnd = anchor.left;
            gap.rightEnd = anchor.right;
            Match(gap, false);
            Add(anchor.left, anchor.right, 1);
            gap.leftBegin = anchor.left + 1;
            gap.rightBegin = anchor.right + 1;
        }
        gap.leftEnd = window.leftEnd;
        gap.rightEnd = window.rightEnd;
        Match(gap, false);
    }

    /// In the order of the left window.
    std::vector<Pair> FindAnchors(const Window& window) const
    {
        struct Occurrence
        {
            int inLeft = 0;
            int inRight = 0;
            int right = 0;
        };
        const int greatest = std::max(*std::max_element(m_left.begin(), m_left.end()),
                                      *std::max_element(m_right.begin(), m_right.end()));
        std::vector<Occurrence> occurrences(static_cast<std::size_t>(greatest) + 1);
        const auto of = [&occurrences](const std::vector<int>& sequence, int index) -> Occurrence& {
            return occurrences[static_cast<std::size_t>(sequence[static_cast<std::size_t>(index)])];
        };
        for (int i = window.leftBegin; i < window.leftEnd; ++i)
            ++of(m_left, i).inLeft;
        for (int i = window.rightBegin; i < window.rightEnd; ++i) {
            ++of(m_right, i).inRight;
            of(m_right, i).right = i;
        }
        std::vector<Pair> anchors;
        for (int i = window.leftBegin; i < window.leftEnd; ++i) {
            const Occurrence& occurrence = of(m_left, i);
            if (occurrence.inLeft == 1 && occurrence.inRight == 1)
                anchors.push_back({i, occurrence.right});
        }
        return anchors;
    }

    /// The longest part of the pairs in which the right items ascend, too.
    static std::vector<Pair> Ascending(const std::vector<Pair>& pairs)
    {
        std::vector<std::size_t> lasts;                // of the best part of each length, its last pair
        std::vector<std::size_t> before(pairs.size()); // the pair in front of each in its best part
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            const auto place =
                std::lower_bound(lasts.begin(), lasts.end(), pairs[i].right,
                                 [&pairs](std::size_t last, int right) { return pairs[last].right < right; });
            before[i] = place == lasts.begin() ? i : *(place - 1);
            if (place == lasts.end())
                lasts.push_back(i);
            else
                *place = i;
        }
        std::vector<Pair> ascending(lasts.size());
        std::size_t next = lasts.empty() ? 0 : lasts.back();
        for (std::size_t i = lasts.size(); i-- > 0; next = before[next])
            ascending[i] = pairs[next];
        return ascending;
    }

    const std::vector<int>& m_left;
    const std::vector<int>& m_right;
    std::vector<CommonRun> m_runs;
};

} // namespace

std::vector<CommonRun> FindCommonRuns(const std::vector<int>& left, const std::vector<int>& right)
{
    return Matching(left, right).Find();
}

} // namespace ReportCore
