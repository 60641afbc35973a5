#include "gui/MouseDrag.h"

#include "gui/UiDriver.h"

#include <chrono>
#include <gtest/gtest.h>
#include <utility>

#include <wx/timer.h>
#include <wx/uiaction.h>

namespace nesk::testing {

namespace {

constexpr int StepMilliseconds = 40;
constexpr int MovesOfAWay = 10;
// Small moves at the end of a way. The program learns the last position even if it missed a move.
constexpr int MovesAtTheEnd = 4;
constexpr int MostStepsOfARest = 125;

} // namespace

MouseDrag::MouseDrag(wxPoint from) : m_at(from) {}

MouseDrag& MouseDrag::To(std::function<wxPoint()> point) {
    m_steps.push_back([this, point = std::move(point), from = wxPoint(), to = wxPoint(), i = 0]() mutable {
        if (i++ == 0) {
            from = std::exchange(m_at, point());
            to = m_at;
            if (from == to) i = MovesOfAWay; // there is no way to go
        }
        const wxPoint at = i <= MovesOfAWay ? from + (to - from) * i / MovesOfAWay : to + wxPoint(i % 2, 0);
        wxUIActionSimulator().MouseMove(at);
        return i == MovesOfAWay + MovesAtTheEnd;
    });
    return *this;
}

MouseDrag& MouseDrag::To(wxPoint point) {
    return To([point] { return point; });
}

MouseDrag& MouseDrag::RestUntil(std::function<bool()> condition) {
    m_steps.push_back([condition = std::move(condition), i = 0]() mutable {
        if (condition()) return true;
        if (++i < MostStepsOfARest) return false;
        ADD_FAILURE() << "what the drag rests for does not come";
        return true;
    });
    return *this;
}

MouseDrag& MouseDrag::Hold(int key) {
    m_key = key;
    return Do([key] { wxUIActionSimulator().KeyDown(key); });
}

MouseDrag& MouseDrag::Do(std::function<void()> act) {
    m_steps.push_back([act = std::move(act)] {
        act();
        return true;
    });
    return *this;
}

void MouseDrag::Make(const std::function<bool()>& isOver) {
    // On Windows the drag blocks until it ends, so a timer makes its steps.
    Do([] { wxUIActionSimulator().MouseUp(); });
    if (m_key != 0) Do([key = m_key] { wxUIActionSimulator().KeyUp(key); });
    wxUIActionSimulator().MouseMove(m_at);
    Settle();
    std::size_t next = 0;
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
        if (next < m_steps.size() && m_steps[next]()) ++next;
    });
    timer.Start(StepMilliseconds);
    wxUIActionSimulator().MouseDown();
    EXPECT_TRUE(WaitUntil([&] { return next == m_steps.size() && isOver(); }, std::chrono::seconds(20)))
        << "the drag does not end";
    timer.Stop();
    Settle();
}

} // namespace nesk::testing
