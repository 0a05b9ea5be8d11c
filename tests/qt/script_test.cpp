// Programs with their event scripts, played on real windows: what they write is what the console host's run
// of the same files is held against.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/qt_person.h"
#include "support/temporary_folder.h"
#include "text/code_page.h"
#include "values/eval.h"

namespace tessera::test {

namespace {

const std::filesystem::path kSource = TESSERA_SOURCE_DIR;

class ScriptOnWindows : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(ScriptOnWindows, WritesWhatTheConsoleHostWrites) {
  const std::string files = kSource / "tests/programs" / GetParam();
  const auto file = [&](const char* extension) { return ReadBytes(files + extension); };
  PlayedOnWindows played(file(".in"));
  HostedProgram& program = played.program;
  std::string written;
  AtWord(program.run, "Escreva", [&](std::string_view arguments) {
    for (const std::string& part : SplitArguments(program.run, arguments, 101)) {
      if (part.empty()) break;
      written += ToUtf8(EvalNumber(program.run, part).ToText());
    }
    written += '\n';
    played.dispatch.ProcessEvents();
    return Value();
  });

  const int status = program.Run(file(".tsc"));
  EXPECT_EQ(written, file(".out"));
  EXPECT_EQ(std::to_string(status) + "\n", file(".status").empty() ? "0\n" : file(".status"));
}

INSTANTIATE_TEST_SUITE_P(
    Programs, ScriptOnWindows,
    testing::Values(
        "entries_tell_their_variables", "objects_come_and_go_by_rows", "objects_share_their_suffixes",
        "objects_go_with_their_window", "texts_have_formats_and_filters", "buttons_are_made_in_three_forms",
        "a_grid_is_sorted_by_its_titles", "cells_of_a_grid_are_edited",
        "clicks_of_a_grid_leave_its_row_in_variables", "a_surface_keeps_the_pointer_that_it_holds",
        "a_stock_background_reads_its_pixels", "closing_a_static_window_stops_its_waiting_routine_alone",
        "dynamic_windows_stay_open_behind_their_routine", "enter_moves_the_focus_where_the_window_says_so",
        "f6_in_a_static_window_ends_the_program", "grids_stand_on_every_window",
        "keys_leave_their_state_and_one_pending_text", "main_window_is_dragged_by_its_area",
        "mouse_tells_buttons_clicks_and_places", "static_window_takes_events_until_it_is_closed",
        "waiting_for_a_click_ends_with_the_input", "windows_of_fixed_frame_keep_their_size",
        "window_table_takes_twenty_and_static_ones_from_five_slots"));

// The stock list of the examples.
TEST(EstoqueOnWindows, SaysWhatItSaysOnTheConsole) {
  const std::filesystem::path folder = kSource / "examples/Estoque";
  const std::filesystem::path expected = kSource / "tests/examples";
  PlayedOnWindows played(ReadBytes(expected / "Estoque.in"));
  played.program.run.ProgramFolderText = FromUtf8Lossy(folder.string()) + "\\";
  played.program.run.paths = PathMapping(played.host.files, folder, folder / "dados");
  EXPECT_EQ(played.program.Run(ReadBytes(folder / "Estoque.tsc")), 0);
  std::string said;
  for (const Box& box : played.boxes.boxes) {
    EXPECT_EQ(box.icon, BoxIcon::Information);
    said += "[info] " + ToUtf8(box.text) + "\n";
  }
  EXPECT_EQ(said, ReadBytes(expected / "Estoque.err"));
}

}  // namespace tessera::test
