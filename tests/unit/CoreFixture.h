#pragma once

#include "platform/TextEncoding.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "unit/platform/TempStation.h"

#include <cstdint>
#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nesk::testing {

/// A message that the core showed.
struct ShownMessage {
    std::string text;
    std::int16_t options;
    std::string title;
};

/// A fresh station in English, with a recorder instead of the message box. A message that was not announced
/// fails the test.
class CoreTest : public ::testing::Test {
protected:
    CoreTest() {
        platform::SelectCodePage(1033);
        modStringRes::InitStringRes(1033);
        m_before = modMessageBox::SetHook(
            [this](const std::string& text, std::int16_t options, const std::string& title) {
                messages.push_back({text, options, title});
                if (m_answers.empty()) {
                    ADD_FAILURE() << "unexpected message: " << text;
                    return modMessageBox::Result::None;
                }
                const std::int16_t answer = m_answers.front();
                m_answers.pop_front();
                return answer;
            });
    }

    ~CoreTest() override {
        modMessageBox::SetHook(m_before);
        EXPECT_TRUE(m_answers.empty()) << "a message that was expected did not come";
        platform::SelectCodePage(1033);
    }

    /// Announces a message and the answer to it.
    void Expect(std::int16_t answer = modMessageBox::Result::Ok) { m_answers.push_back(answer); }

    std::vector<ShownMessage> messages;
    TempStation station;

private:
    modMessageBox::Hook m_before;
    std::deque<std::int16_t> m_answers;
};

} // namespace nesk::testing
