#include "copy/OverwritePrompt.h"

#include "tests/fakes/FakeControls.h"
#include "tests/fakes/FakeWindow.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

/// How GoogleTest prints an answer that is not the expected one.
static void PrintTo(OverwritePrompt::Answer answer, std::ostream* out) {
    *out << int(answer);
}

namespace {

class OverwritePromptTest : public testing::Test {
protected:
    OverwritePromptTest() {
        window.SetSize(4000, 2000);
        lblMessage.SetWidth(3000);
        prompt.AskAbout(u"D:\\Music\\Song.mp3"_s);
    }

    FakeWindow window;
    FakeLabelControl lblMessage;
    FakeButtonControl buttons[3];
    FakeCheckControl chkSame;
    OverwritePrompt prompt;
    frmOverwrite form{prompt, {window, lblMessage, buttons[0], buttons[1], buttons[2], chkSame}};
};

} // namespace

TEST_F(OverwritePromptTest, LoadAsksTheQuestionWithThePathInDoubleQuotes) {
    prompt.AskAbout(u"/m/You & Me.mp3"_s);
    form.Form_Load();
    // The two are one on the screen, where a single one would mark an access key.
    EXPECT_EQ(lblMessage.Caption(), u"File already exists: \"/m/You && Me.mp3\". Replace it?"_s);
}

TEST_F(OverwritePromptTest, AVeryLongPathWidensTheWindowSoThatTheQuestionShowsOnOneLine) {
    prompt.AskAbout(QString(464, u'a'));
    form.Form_Load();
    // 500 letters of 100 twips, and the margin of the design
    EXPECT_EQ(lblMessage.Width(), 50000);
    EXPECT_EQ(window.Width(), 51000);
    EXPECT_EQ(window.Height(), 2000);
}

TEST_F(OverwritePromptTest, AShortPathNarrowsTheWindowWhichKeepsItsMargin) {
    lblMessage.SetWidth(8000);
    window.SetSize(9000, 2000);
    prompt.AskAbout(u"/a.mp3"_s);
    form.Form_Load();
    EXPECT_EQ(lblMessage.Width(), 4200); // 42 letters of 100 twips
    EXPECT_EQ(window.Width(), 5200);
}

TEST_F(OverwritePromptTest, ClosingThePromptWithItsCloseBoxGivesCancel) {
    prompt.Take(OverwritePrompt::Replace, false);
    prompt.AskAbout(u"D:\\Music\\Song.mp3"_s);
    form.Form_Load();
    window.ShowModal();
    EXPECT_EQ(prompt.OverwriteAnswer(), OverwritePrompt::Cancel);
    EXPECT_FALSE(prompt.OverwriteAll());
}

TEST_F(OverwritePromptTest, EachButtonGivesItsAnswerAndTheTickIsRememberedUnlessItCancels) {
    for (const bool ticked : {false, true}) {
        for (int index = 0; index < 3; ++index) {
            prompt.Take(OverwritePrompt::Skip, !ticked);
            form.Form_Load();
            chkSame.SetValue(ticked);
            window.ModalScript = [this, index] { buttons[index].UserPress(); };
            window.ShowModal();
            EXPECT_TRUE(window.Closed);
            EXPECT_EQ(prompt.OverwriteAnswer(), static_cast<OverwritePrompt::Answer>(index));
            EXPECT_EQ(prompt.OverwriteAll(),
                      ticked && prompt.OverwriteAnswer() != OverwritePrompt::Cancel);
        }
    }
}
