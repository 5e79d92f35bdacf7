#include "ui/qt/long_sender.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <atomic>
#include <thread>

namespace zentaline::ui::qt {

namespace {

constexpr int kLookEvery = 40;    // milliseconds between two looks at how far it has come
constexpr int kBarAppears = 200;  // what is over before that shows no bar

// Bytes gone in the low half, of how many in the high half.
std::uint64_t Pack(std::uint32_t gone, std::uint32_t total) {
  return (static_cast<std::uint64_t>(total) << 32) | gone;
}

}  // namespace

LongSender::LongSender(QtToolkit& toolkit, MidiService& service) : toolkit_(toolkit), service_(service) {}

int LongSender::midiOutLongMsg(MidiHandle handle, MidiHeader& header, std::uint32_t size) {
  if (header.buffer_length <= kShort) return service_.midiOutLongMsg(handle, header, size);

  const Gate::HoldInput hold(toolkit_.windows().gate());
  std::atomic<std::uint64_t> state{Pack(0, header.buffer_length)};
  service_.SetProgress([&state](std::uint32_t gone, std::uint32_t total) { state.store(Pack(gone, total)); });

  QElapsedTimer since;
  since.start();
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    const std::uint64_t now = state.load();
    ShowProgress(static_cast<std::uint32_t>(now), static_cast<std::uint32_t>(now >> 32), since.elapsed());
  });
  look.start(kLookEvery);

  int result = kMidiError;
  std::thread sender([&] {
    result = service_.midiOutLongMsg(handle, header, size);
    QMetaObject::invokeMethod(
        &loop, [&loop] { loop.quit(); }, Qt::QueuedConnection);
  });
  // Input comes in, so that bars follow the hand; the gate keeps what it is about.
  loop.exec();
  sender.join();

  service_.SetProgress(nullptr);
  if (toolkit_.windows().main() != nullptr) toolkit_.windows().main()->HideProgress();
  return result;
}

void LongSender::ShowProgress(std::uint32_t gone, std::uint32_t total, std::int64_t milliseconds) {
  if (progress_) progress_(gone, total);
  if (milliseconds < kBarAppears || toolkit_.windows().main() == nullptr) return;
  // At the speed it has had so far.
  const std::int64_t left = gone == 0 ? 0 : milliseconds * (total - gone) / gone;
  toolkit_.windows().main()->ShowProgress(gone, total, static_cast<int>((left + 999) / 1000));
}

}  // namespace zentaline::ui::qt
