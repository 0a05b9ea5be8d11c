#include "support/virtual_screen.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <thread>

namespace tessera {

namespace {

constexpr std::chrono::milliseconds kStep{10};
constexpr int kMostSteps = 1000;

struct Disconnect {
  void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
  const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
      xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

// The server takes a free number by itself and tells it.
VirtualScreen::VirtualScreen(Behind behind)
    : server_({.words = {"/usr/bin/Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten",
                         "tcp", behind == Behind::Stays ? "-noreset" : "-reset"}}) {
  for (int i = 0; i < kMostSteps && !server_.Out().ends_with('\n'); ++i) std::this_thread::sleep_for(kStep);
  display_ = ":" + server_.Out().substr(0, server_.Out().find('\n'));
  EXPECT_NE(display_, ":") << server_.Err();
}

// Where a sanitizer looks for leaks, what the desktop's own libraries keep until the end is none of ours.
std::vector<std::string> VirtualScreen::Environment() const {
  return {"DISPLAY=" + display_, "QT_QPA_PLATFORM", "WAYLAND_DISPLAY",
          "XDG_RUNTIME_DIR=" + folder_.path().string(), "ASAN_OPTIONS=detect_leaks=0"};
}

ProcessResult VirtualScreen::Ask(std::vector<std::string> words) const {
  words.insert(words.begin(), "/usr/bin/xdotool");
  return RunProcess({.words = std::move(words), .environment = Environment()});
}

std::uint32_t VirtualScreen::WindowNamed(const std::string& title, std::uint32_t before) const {
  for (int i = 0; i < kMostSteps; ++i) {
    const ProcessResult focus = Ask({"getwindowfocus"});
    const ProcessResult name = Ask({"getwindowfocus", "getwindowname"});
    if (focus.status == 0 && name.out == title + "\n") {
      const auto window = static_cast<std::uint32_t>(std::stoul(focus.out));
      if (window != before) return window;
    }
    std::this_thread::sleep_for(kStep);
  }
  ADD_FAILURE() << "no window is named " << title;
  return 0;
}

void VirtualScreen::Do(std::vector<std::string> words) const {
  const ProcessResult done = Ask(std::move(words));
  EXPECT_EQ(done.status, 0) << done.err;
}

void VirtualScreen::PointAt(std::uint32_t window, int x, int y) const {
  Do({"mousemove", "--window", std::to_string(window), std::to_string(x), std::to_string(y)});
}

void VirtualScreen::Close(std::uint32_t window) const {
  const std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(display_.c_str(), nullptr));
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = AtomOf(connection.get(), "WM_PROTOCOLS");
  message.data.data32[0] = AtomOf(connection.get(), "WM_DELETE_WINDOW");
  message.data.data32[1] = XCB_CURRENT_TIME;
  xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
  // The server has the message once it answers; a client that goes before may take it along.
  const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> answer(
      xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()), nullptr),
      &std::free);
  EXPECT_NE(answer, nullptr);
}

}  // namespace tessera
