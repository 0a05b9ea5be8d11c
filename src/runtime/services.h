// What a run asks of the outside, given to it when it is made.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/machine_commands.h"
#include "media/media_host.h"
#include "platform/host.h"
#include "platform/stack_limit.h"
#include "platform/start_form.h"
#include "platform/user_folders.h"
#include "reports/paper_part.h"
#include "reports/report_host.h"
#include "runtime/program_start.h"
#include "windows/picture_codec.h"

namespace tessera {

class Display;

// Hears that a failure ended what `what` says, in UTF-8; "Editor: n Linha: m" and the failure's description.
using FailureListener =
    std::function<void(std::string_view what, std::string_view position, std::string_view description)>;

// What a host hears of beside its windows. They outlive the run.
struct Listeners {
  reports::ReportHost& reports;
  media::MediaHost& media;
  FailureListener hiddenFailures = {};
};

struct Services {
  Host host;
  // None for a run without windows, in which the words of windows do nothing.
  Display* display = nullptr;
  UserFolders folders;
  // Holds the folders of drive letters.
  std::string dataFolder;
  MachineCommands::Places machine;
  // Where the system's parts may lie (own_folder.h).
  std::vector<std::filesystem::path> partFolders = {};
  // Asked at the first file of a picture.
  PictureCodecFinder findCodec = NoPictureCodec;
  // Asked at the first report or print.
  reports::PagePainterFinder findPainter = reports::PainterOfPart({});
  // What the host makes of reports; none hears of them.
  reports::ReportHost* reportHost = nullptr;
  // The printer that whoever started the program gave it (program_start.h).
  std::string printer = {};
  // What the host makes of sound and video; none plays in time alone and hears of nothing.
  media::MediaHost* mediaHost = nullptr;
  // What whoever started the program gave it instead of devices (program_start.h).
  std::string microphone = {};
  std::string camera = {};
  // The window form that whoever started the program asked for.
  StartForm startForm = StartForm::Normal;
  // Writes on the terminal of the person who reads along; none where nobody does.
  std::function<void(std::string_view text)> tellProgress = {};
  // Hears of failures that end a routine in silence; none where nobody asked for them.
  FailureListener hiddenFailures = {};
  // How deep the run may nest.
  StackLimit stack = StackLimit();
  // Tests turn it off to compare the ordering of records with its plain form.
  bool quickOrders = true;
};

// Those of the user who runs this process. The start form is taken out of the environment, so that no program
// that this one starts finds it.
Services UserServices(const Host& host, Display* display, const Listeners& listeners,
                      const ProgramStart& start);

}  // namespace tessera
