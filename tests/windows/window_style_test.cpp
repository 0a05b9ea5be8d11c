// What windows have beyond a plain frame, as the logic keeps it for every host: their shape, their system
// menu, and dragging by the client area.
#include <gtest/gtest.h>

#include "support/console_window.h"

#include "windows/picture_commands.h"
#include "windows/sys_menu.h"

namespace tessera::test {

namespace {

constexpr Colour kGreen = 0x00FF00;

class WindowStyleTest : public ConsoleWindowTest {
 protected:
  // The enabled entries of the system menu by their first letters behind "&".
  std::string Enabled() {
    std::string keys;
    for (const SysMenuEntry& entry : SysMenuOf(Window())) {
      if (entry.enabled) keys += entry.label[entry.label.find('&') + 1];
    }
    return keys;
  }
  void SetStyle(const WindowStyle& style) { Window().SetStyle(style); }
};

}  // namespace

TEST_F(WindowStyleTest, AShapedWindowLosesItsCaptionAndWhatHasTheColour) {
  Draw(
      "Janela Resolucao = 420, 640, Fundo = Branco\nRetangulo 10, 20, 12, 29, Vermelho\nLinhaReta 11, 24, "
      "11, 25, "
      "Verde\n");
  Window().ShapeMe(kGreen);
  EXPECT_EQ(Window().Caption(), "");
  EXPECT_EQ(Window().BackColor(), kGreen) << "the ground is cut out whatever it was";
  const Spans frame = {{10, 20, 29}, {11, 20, 20}, {11, 29, 29}, {12, 20, 29}};
  ASSERT_TRUE(Window().Shape());
  EXPECT_EQ(*Window().Shape(), frame) << "the box is hollow";
}

TEST_F(WindowStyleTest, AWindowWithoutThatColourKeepsItsFullRectangle) {
  Draw("Cls\n");
  program.Fundo(Window(), "ImgPantano");
  Window().ShapeMe(0xFF00FF);
  EXPECT_FALSE(Window().Shape());
  program.Fundo(Window(), "Vazio");
  Window().ShapeMe(0xFF00FF);
  ASSERT_TRUE(Window().Shape());
  EXPECT_TRUE(Window().Shape()->empty()) << "all of it has the colour";
}

TEST_F(WindowStyleTest, TheSystemMenuFollowsTheButtonsAndTheState) {
  Draw("Cls\n");
  EXPECT_EQ(Enabled(), "MTnxF");
  Window().SetState(WindowState::Maximised);
  EXPECT_EQ(Enabled(), "RnF");
  Window().SetState(WindowState::Normal);
  SetStyle({.MinButton = false});
  EXPECT_EQ(Enabled(), "MTxF");
  SetStyle({.MaxButton = false, .Sizable = false});
  EXPECT_EQ(Enabled(), "MnF");
  SetStyle({.MinButton = false, .Sizable = false, .AutoSysMenu = false});
  EXPECT_EQ(Enabled(), "MTnxF") << "it doesn't follow";
  SetStyle({.ControlBox = false});
  EXPECT_EQ(Enabled(), "");
}

TEST_F(WindowStyleTest, AWindowIsDraggedByItsClientAreaAndTheProgramFeelsNothing) {
  in.str("mouse 3 10\npressiona 1\nmouse 5 15\nlibera 1\nmouse 4 12\npressiona 2\n");
  Draw("Cls\n");
  SetStyle({.AutoDrag = true});
  const Placement before = Window().Place();
  for (int line = 0; line < 4; ++line) program.commands.CommandCall("Aguarde", "0");
  EXPECT_EQ(Window().Place().Left, before.Left + 5 * 8 * kTwipsPerPixel);
  EXPECT_EQ(Window().Place().Top, before.Top + 2 * 14 * kTwipsPerPixel);
  EXPECT_EQ(program.Read("CliqueMouse"), "");
  EXPECT_EQ(program.commands.CommandCall("TestaMouse", "").ToText(), "00");
  EXPECT_EQ(program.Read("LinhaMouse"), "3") << "where the drag began";
  for (int line = 0; line < 2; ++line) program.commands.CommandCall("Aguarde", "0");
  EXPECT_EQ(program.Read("LinhaMouse"), "4");
  EXPECT_EQ(program.commands.CommandCall("TestaMouse", "").ToText(), "01")
      << "the other button is the program's";
}

}  // namespace tessera::test
