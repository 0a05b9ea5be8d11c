// `Som` and `Video`, objects that play a file: the control `MediaPlayer` on the main window, hidden for a
// sound. The timer `TimerSound` copies length and place into the variables beside each object, and starts a
// marked one anew at its end.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "media/media.h"
#include "media/screen_control.h"
#include "objects/object_family.h"

namespace tessera::media {

class MediaPlayerControl final : public ScreenControl {
 public:
  MediaPlayerControl(Form& form, ControlEvents& events, int index);

  // The file of the next `.TOCAR`, and whether it starts anew at its end.
  std::string NextFile;
  bool Loop = false;

  // The file that plays, as the program wrote it and by the system's path; empty while none is open.
  std::string FileName;
  std::string path;
  Milliseconds knownLength{0};  // by the file itself; 0 where only the player finds it out
  std::unique_ptr<Player> player;

  bool IsOpen() const { return !path.empty(); }

  // As large as it fits, in the middle.
  ControlPlace PlaceOfFrame(Size frame) const override;
};

class Som final : public ObjectFamily {
 public:
  // The media outlive the family.
  Som(ObjectFrame& frame, Media& media);

  // `Video`, which is the same command for what can be seen.
  void BindVideo(CommandTable& table);

  // What the suffixes do.
  void Tocar(MediaPlayerControl& control);
  void Parar(MediaPlayerControl& control);
  void Continuar(MediaPlayerControl& control);
  void Fim(MediaPlayerControl& control);

  void Reset() override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  bool IsShownAtFirst(const Arguments& arguments) const override;
  void OnRemoved(Control& control) override;
  std::string LookupName(std::string_view written) override;

 private:
  void StartTimer();
  void TimerSound();
  void Publish(MediaPlayerControl& control);
  std::unique_ptr<Player> NewPlayer(MediaPlayerControl& control);
  void OpenAndPlay(MediaPlayerControl& control);
  void AwaitLoading(Player& player);

  Media& media_;
  std::unique_ptr<Timer> timerSound_;
};

}  // namespace tessera::media
