#include "qtmedia/file_player.h"

#include <QFileInfo>
#include <QUrl>
#include <QVideoFrame>
#include <algorithm>
#include <utility>

#include "qtmedia/codecs.h"
#include "qtmedia/frames.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera::qtmedia {

using media::Milliseconds;

FilePlayer::FilePlayer(media::FrameSink frames) : frames_(std::move(frames)) {
  player_.setAudioOutput(&sound_);
  player_.setVideoSink(&screen_);
  QObject::connect(&player_, &QMediaPlayer::mediaStatusChanged, &player_,
                   [this](QMediaPlayer::MediaStatus status) {
                     if (status == QMediaPlayer::EndOfMedia) hasEnded_ = true;
                   });
  QObject::connect(&screen_, &QVideoSink::videoFrameChanged, &screen_, [this](const QVideoFrame& frame) {
    if (PictureRef picture = PictureOf(frame)) frames_(std::move(picture));
  });
}

FilePlayer::~FilePlayer() {
  Close();
}

// A file that is open already is only sent back to its start.
void FilePlayer::Open(const std::string& path, Milliseconds length) {
  knownLength_ = length;
  hasEnded_ = false;
  const QUrl source = QUrl::fromLocalFile(QString::fromStdString(path));
  if (player_.source() == source && player_.error() == QMediaPlayer::NoError) {
    player_.stop();
    player_.setPosition(0);
    return;
  }
  isProblemTold_ = false;
  player_.setSource(source);
}

void FilePlayer::Play() {
  if (!HasEnded()) player_.play();
}

void FilePlayer::Pause() {
  if (player_.playbackState() == QMediaPlayer::PlayingState) player_.pause();
}

void FilePlayer::Close() {
  player_.stop();
  player_.setSource({});
}

Milliseconds FilePlayer::Length() const {
  return knownLength_.count() > 0 ? knownLength_ : Milliseconds(player_.duration());
}

Milliseconds FilePlayer::Position() const {
  const Milliseconds length = Length();
  const Milliseconds position(player_.position());
  if (HasEnded()) return length;
  return length.count() > 0 ? std::min(position, length) : position;
}

bool FilePlayer::IsLoading() const {
  return player_.mediaStatus() == QMediaPlayer::LoadingMedia && player_.position() == 0;
}

std::string FilePlayer::TakeProblem() {
  if (player_.error() == QMediaPlayer::NoError || std::exchange(isProblemTold_, true)) return {};
  const std::string file = QFileInfo(player_.source().toLocalFile()).fileName().toStdString();
  const std::string codecs = MissingCodecs();
  std::string problem =
      std::string("O arquivo "_w).append(FromUtf8Lossy(file)).append(" não pode ser tocado"_w);
  if (codecs.empty()) {
    return problem.append(": está danificado, ou nenhum codec instalado o conhece."_w);
  }
  return problem.append(". Instale o pacote "_w).append(codecs).append(", ou confira se ele está inteiro."_w);
}

}  // namespace tessera::qtmedia
