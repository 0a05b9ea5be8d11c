#include "qtmedia/device_microphone.h"

#include <QAudioFormat>
#include <QAudioSource>
#include <QEventLoop>
#include <QIODevice>
#include <QMediaDevices>
#include <future>
#include <utility>

namespace tessera::qtmedia {

namespace {

// Takes what is heard. A sample of a frame may come in a later portion.
class Ear final : public QIODevice {
 public:
  explicit Ear(media::Hearing hearing) : hearing_(std::move(hearing)) { open(QIODevice::WriteOnly); }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override {
    heard_.append(bytes, count);
    const auto whole = static_cast<std::size_t>(heard_.size()) / sizeof(media::SoundFrame);
    hearing_({reinterpret_cast<const media::SoundFrame*>(heard_.constData()), whole});
    heard_.remove(0, static_cast<qsizetype>(whole) * static_cast<qsizetype>(sizeof(media::SoundFrame)));
    return count;
  }

 private:
  media::Hearing hearing_;
  QByteArray heard_;
};

void Hear(const QAudioDevice& device, const QAudioFormat& format, const media::Hearing& hearing,
          std::promise<bool>& hasStarted) {
  Ear ear(hearing);
  QAudioSource source(device, format);
  source.start(&ear);
  const bool isHearing = source.error() == QAudio::NoError;
  hasStarted.set_value(isHearing);
  if (!isHearing) return;
  QEventLoop().exec();
  source.stop();
}

}  // namespace

bool DeviceMicrophone::Open() {
  device_ = QMediaDevices::defaultAudioInput();
  return !device_.isNull();
}

// The system's sound server turns any format into its device's own.
bool DeviceMicrophone::SetFormat(const media::RecordingFormat& format) {
  format_ = format;
  return !device_.isNull();
}

bool DeviceMicrophone::Start(media::Hearing hearing) {
  Stop();
  if (device_.isNull()) return false;
  QAudioFormat format;
  format.setSampleRate(format_.samplesPerSecond);
  format.setChannelCount(format_.channels);
  format.setSampleFormat(QAudioFormat::Int16);
  std::promise<bool> hasStarted;
  std::future<bool> started = hasStarted.get_future();
  hearing_.reset(QThread::create([&hasStarted, device = device_, format, hearing = std::move(hearing)] {
    Hear(device, format, hearing, hasStarted);
  }));
  hearing_->start();
  return started.get();
}

void DeviceMicrophone::Stop() {
  if (!hearing_) return;
  hearing_->quit();
  hearing_->wait();
  hearing_.reset();
}

bool DeviceMicrophone::Close() {
  Stop();
  device_ = {};
  return true;
}

}  // namespace tessera::qtmedia
