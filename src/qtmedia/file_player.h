// Plays a file through the toolkit.
#pragma once

#include <QAudioOutput>
#include <QMediaPlayer>
#include <QVideoSink>
#include <string>

#include "media/player.h"

namespace tessera::qtmedia {

class FilePlayer final : public media::Player {
 public:
  explicit FilePlayer(media::FrameSink frames);
  ~FilePlayer() override;

  void Open(const std::string& path, media::Milliseconds length) override;
  void Play() override;
  void Pause() override;
  void Close() override;
  media::Milliseconds Length() const override;
  media::Milliseconds Position() const override;
  bool HasEnded() const override { return hasEnded_; }
  bool IsLoading() const override;
  std::string TakeProblem() override;

 private:
  media::FrameSink frames_;
  media::Milliseconds knownLength_{0};
  bool isProblemTold_ = false;
  bool hasEnded_ = false;  // the toolkit's own state says so even behind a new start
  QAudioOutput sound_;     // always there: the toolkit's clock is in it, also where nothing is heard
  QVideoSink screen_;
  QMediaPlayer player_;
};

}  // namespace tessera::qtmedia
