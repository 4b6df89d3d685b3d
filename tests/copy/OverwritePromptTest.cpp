#include "copy/OverwritePrompt.h"

#include "tests/fakes/FakeControls.h"
#include "tests/fakes/FakeWindow.h"

#include <gtest/gtest.h>

#include <ostream>

/// How GoogleTest prints an answer that is not the expected one.
static void PrintTo(OverwritePrompt::Answer answer, std::ostream* out) {
    *out << int(answer);
}

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

class OverwritePromptTest : public testing::Test {
protected:
    OverwritePromptTest() {
        window.SetSize(4000, 2000);
        lblMessage.SetWidth(3000);
        prompt.OverwriteFile = Text("D:\\Music\\Song.mp3");
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
    form.Form_Load();
    EXPECT_EQ(lblMessage.Caption(),
              Text("File already exists: \"D:\\Music\\Song.mp3\". Replace it?"));
}

TEST_F(OverwritePromptTest, AnAmpersandInThePathIsShownAndMarksNoAccessKey) {
    prompt.OverwriteFile = Text("/m/You & Me.mp3");
    form.Form_Load();
    EXPECT_EQ(lblMessage.Caption(), Text("File already exists: \"/m/You && Me.mp3\". Replace it?"));
}

TEST_F(OverwritePromptTest, AVeryLongPathWidensTheWindowSoThatTheQuestionShowsOnOneLine) {
    prompt.OverwriteFile = QString(464, QLatin1Char('a'));
    form.Form_Load();
    // 500 letters of 100 twips, and the margin of the design
    EXPECT_EQ(lblMessage.Width(), 50000);
    EXPECT_EQ(window.Width(), 51000);
    EXPECT_EQ(window.Height(), 2000);
}

TEST_F(OverwritePromptTest, AShortPathNarrowsTheWindowWhichKeepsItsMargin) {
    lblMessage.SetWidth(8000);
    window.SetSize(9000, 2000);
    prompt.OverwriteFile = Text("/a.mp3");
    form.Form_Load();
    EXPECT_EQ(lblMessage.Width(), 4200); // 42 letters of 100 twips
    EXPECT_EQ(window.Width(), 5200);
}

TEST_F(OverwritePromptTest, ClosingThePromptWithItsCloseBoxGivesCancel) {
    prompt.OverwriteAnswer = OverwritePrompt::Replace;
    form.Form_Load();
    window.ShowModal();
    EXPECT_EQ(prompt.OverwriteAnswer, OverwritePrompt::Cancel);
    EXPECT_FALSE(prompt.OverwriteAll);
}

TEST_F(OverwritePromptTest, EachButtonGivesItsIndexAndClosesTheWindow) {
    for (int index = 0; index < 3; ++index) {
        form.Form_Load();
        window.ModalScript = [this, index] { buttons[index].UserPress(); };
        window.ShowModal();
        EXPECT_TRUE(window.Closed);
        EXPECT_EQ(prompt.OverwriteAnswer, static_cast<OverwritePrompt::Answer>(index));
        EXPECT_FALSE(prompt.OverwriteAll);
    }
}

TEST_F(OverwritePromptTest, TheTickedBoxIsRememberedForReplaceAndSkip) {
    chkSame.SetValue(true);
    form.cmdOverwrite_Click(OverwritePrompt::Replace);
    EXPECT_TRUE(prompt.OverwriteAll);
    prompt.OverwriteAll = false;
    form.cmdOverwrite_Click(OverwritePrompt::Skip);
    EXPECT_TRUE(prompt.OverwriteAll);
}

TEST_F(OverwritePromptTest, TheTickedBoxIsNeverRememberedForCancel) {
    chkSame.SetValue(true);
    prompt.OverwriteAll = true;
    form.cmdOverwrite_Click(OverwritePrompt::Cancel);
    EXPECT_EQ(prompt.OverwriteAnswer, OverwritePrompt::Cancel);
    EXPECT_FALSE(prompt.OverwriteAll);
}

TEST_F(OverwritePromptTest, WithoutTheTickTheNextFileIsAskedAboutAgain) {
    prompt.OverwriteAll = true;
    form.cmdOverwrite_Click(OverwritePrompt::Skip);
    EXPECT_FALSE(prompt.OverwriteAll);
}
