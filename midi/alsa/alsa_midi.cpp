#include "midi/alsa/alsa_midi.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <cerrno>
#include <thread>

#include "midi/alsa/port_names.h"

namespace zentaline {

namespace {

constexpr unsigned kWritable = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
constexpr unsigned kReadable = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
constexpr auto kPatience = std::chrono::milliseconds(500);  // with a port that takes nothing
constexpr auto kRetry = std::chrono::milliseconds(5);
constexpr std::size_t kShortMessageBytes = 3;

int ResultOf(int error) {
  switch (-error) {
    case EBUSY:
      return kMidiAllocated;
    case EAGAIN:
      return kMidiNotReady;
    case ENOMEM:
      return kMidiNoMemory;
    // The sequencer's answer to a client or port that is not there is EINVAL when subscribing and ENOENT when sending.
    case EINVAL:
    case ENOENT:
    case ENODEV:
    case ENXIO:
      return kMidiNoDevice;
    default:
      return error < 0 ? kMidiError : kMidiOk;
  }
}

snd_seq_addr_t AlsaAddress(PortAddress address) {
  return {static_cast<unsigned char>(address.client), static_cast<unsigned char>(address.port)};
}

snd_seq_port_subscribe_t* Fill(snd_seq_port_subscribe_t* subscription, PortAddress from, PortAddress to) {
  const snd_seq_addr_t sender = AlsaAddress(from);
  const snd_seq_addr_t destination = AlsaAddress(to);
  snd_seq_port_subscribe_set_sender(subscription, &sender);
  snd_seq_port_subscribe_set_dest(subscription, &destination);
  return subscription;
}

void NoMessage(const char*, int, const char*, int, const char*, ...) {}

snd_seq_t* OpenSequencer() {
  // Not blocking: the service waits by itself, and never for ever. Errors are results here, not lines on a terminal.
  snd_lib_error_set_handler(NoMessage);
  snd_seq_t* sequencer = nullptr;
  const int result = snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_OUTPUT, SND_SEQ_NONBLOCK);
  snd_lib_error_set_handler(nullptr);
  return result < 0 ? nullptr : sequencer;
}

}  // namespace

AlsaMidi::AlsaMidi() {
  AlsaMidi::Scan();
}

AlsaMidi::~AlsaMidi() {
  for (const auto& [in, guard] : guards_) Unsubscribe(inputs_[in], outputs_[JoinedTo(in)].destination);
  if (encoder_ != nullptr) snd_midi_event_free(encoder_);
  if (sequencer_ != nullptr) snd_seq_close(sequencer_);
}

bool AlsaMidi::Available() {
  snd_seq_t* sequencer = OpenSequencer();
  if (sequencer == nullptr) return false;
  snd_seq_close(sequencer);
  return true;
}

bool AlsaMidi::Connect() {
  if (sequencer_ != nullptr) return true;
  if (encoder_ == nullptr && snd_midi_event_new(kShortMessageBytes, &encoder_) < 0) return false;
  sequencer_ = OpenSequencer();
  if (sequencer_ == nullptr) return false;
  snd_seq_set_client_name(sequencer_, "Zentaline");
  client_ = snd_seq_client_id(sequencer_);
  return true;
}

std::vector<AlsaMidi::Port> AlsaMidi::Find(unsigned capabilities) const {
  std::vector<Port> ports;
  snd_seq_client_info_t* client = nullptr;
  snd_seq_port_info_t* port = nullptr;
  snd_seq_client_info_alloca(&client);
  snd_seq_port_info_alloca(&port);
  snd_seq_client_info_set_client(client, -1);
  while (snd_seq_query_next_client(sequencer_, client) >= 0) {
    const int number = snd_seq_client_info_get_client(client);
    if (number == SND_SEQ_CLIENT_SYSTEM || number == client_) continue;
    snd_seq_port_info_set_client(port, number);
    snd_seq_port_info_set_port(port, -1);
    while (snd_seq_query_next_port(sequencer_, port) >= 0) {
      const unsigned has = snd_seq_port_info_get_capability(port);
      if ((has & capabilities) != capabilities || (has & SND_SEQ_PORT_CAP_NO_EXPORT) != 0) continue;
      ports.push_back({{number, snd_seq_port_info_get_port(port)},
                       snd_seq_client_info_get_name(client),
                       snd_seq_port_info_get_name(port)});
    }
  }
  return ports;
}

void AlsaMidi::Scan() {
  const bool idle = outputs_.empty() && inputs_.empty();
  if (idle) outs_ = ins_ = {};
  if (!Connect()) return;
  for (const auto& [direction, capabilities] :
       {std::pair{MidiDirection::kOut, kWritable}, std::pair{MidiDirection::kIn, kReadable}}) {
    List& list = ListOf(direction);
    for (const Port& port : Find(capabilities)) {
      if (std::find(list.ports.begin(), list.ports.end(), port) == list.ports.end()) list.ports.push_back(port);
    }
    list.names.clear();
    for (const Port& port : list.ports) list.names.push_back(PortName(port.client_name, port.port_name));
    MakeDistinct(list.names);
  }
}

const std::vector<std::string>& AlsaMidi::Devices(MidiDirection direction) const {
  return direction == MidiDirection::kOut ? outs_.names : ins_.names;
}

// The same number may by now be another program's.
bool AlsaMidi::StillThere(const Port& port) const {
  snd_seq_client_info_t* client = nullptr;
  snd_seq_port_info_t* info = nullptr;
  snd_seq_client_info_alloca(&client);
  snd_seq_port_info_alloca(&info);
  return snd_seq_get_any_client_info(sequencer_, port.address.client, client) >= 0 &&
         snd_seq_get_any_port_info(sequencer_, port.address.client, port.address.port, info) >= 0 &&
         port.client_name == snd_seq_client_info_get_name(client) && port.port_name == snd_seq_port_info_get_name(info);
}

int AlsaMidi::Open(MidiDirection direction, int device, MidiHandle handle) {
  const Port& port = ListOf(direction).ports[static_cast<std::size_t>(device)];
  if (!StillThere(port)) return kMidiNoDevice;
  if (direction == MidiDirection::kOut) return OpenOut(port, handle);
  inputs_[handle] = port.address;
  return kMidiOk;
}

int AlsaMidi::OpenOut(const Port& port, MidiHandle handle) {
  // A port of its own for each output, closed to all others: what goes through it comes from this program alone.
  const int own_port =
      snd_seq_create_simple_port(sequencer_, "Output", SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_NO_EXPORT,
                                 SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
  if (own_port < 0) return ResultOf(own_port);
  const int result = Subscribe({client_, own_port}, port.address);
  if (result != kMidiOk) {
    snd_seq_delete_simple_port(sequencer_, own_port);
    return result;
  }
  outputs_[handle] = {port.address, own_port, IsCable(port.address), Pace(bytes_per_second_)};
  return kMidiOk;
}

int AlsaMidi::Close(MidiHandle handle) {
  if (inputs_.erase(handle) > 0) return kMidiOk;
  const int own_port = outputs_[handle].own_port;
  outputs_.erase(handle);
  return ResultOf(snd_seq_delete_simple_port(sequencer_, own_port));
}

bool AlsaMidi::IsCable(PortAddress address) const {
  snd_seq_client_info_t* client = nullptr;
  snd_seq_client_info_alloca(&client);
  return snd_seq_get_any_client_info(sequencer_, address.client, client) >= 0 &&
         snd_seq_client_info_get_type(client) == SND_SEQ_KERNEL_CLIENT && snd_seq_client_info_get_card(client) >= 0;
}

bool AlsaMidi::Subscribed(PortAddress from, PortAddress to) const {
  snd_seq_port_subscribe_t* subscription = nullptr;
  snd_seq_port_subscribe_alloca(&subscription);
  return snd_seq_get_port_subscription(sequencer_, Fill(subscription, from, to)) >= 0;
}

int AlsaMidi::Subscribe(PortAddress from, PortAddress to) {
  snd_seq_port_subscribe_t* subscription = nullptr;
  snd_seq_port_subscribe_alloca(&subscription);
  const int error = snd_seq_subscribe_port(sequencer_, Fill(subscription, from, to));
  if (error >= 0 || Subscribed(from, to)) return kMidiOk;
  return error == -EAGAIN ? kMidiAllocated : ResultOf(error);
}

int AlsaMidi::Unsubscribe(PortAddress from, PortAddress to) {
  snd_seq_port_subscribe_t* subscription = nullptr;
  snd_seq_port_subscribe_alloca(&subscription);
  const int error = snd_seq_unsubscribe_port(sequencer_, Fill(subscription, from, to));
  // Someone else may have parted them already.
  return error == -ENOENT ? kMidiOk : ResultOf(error);
}

int AlsaMidi::Write(const Output& output, snd_seq_event& event) {
  // The subscription opens the port and tells that it is still the same one; the address makes a failure come back.
  if (!Subscribed({client_, output.own_port}, output.destination)) return kMidiNoDevice;
  snd_seq_ev_set_source(&event, static_cast<unsigned char>(output.own_port));
  snd_seq_ev_set_dest(&event, static_cast<unsigned char>(output.destination.client),
                      static_cast<unsigned char>(output.destination.port));
  snd_seq_ev_set_direct(&event);
  const auto last_try = Pace::Clock::now() + kPatience;
  while (true) {
    const int error = snd_seq_event_output_direct(sequencer_, &event);
    // A reader that does not keep up has no room for the event, which is told in two ways.
    if (error != -EAGAIN && error != -ENOMEM) return ResultOf(error);
    if (Pace::Clock::now() >= last_try) return kMidiNotReady;
    std::this_thread::sleep_for(kRetry);
  }
}

int AlsaMidi::WriteBytes(const Output& output, std::string_view bytes) {
  // Whatever the bytes are: an event of this kind alone reaches a cable as it is.
  std::string copy(bytes);
  snd_seq_event_t event;
  snd_seq_ev_clear(&event);
  snd_seq_ev_set_sysex(&event, static_cast<unsigned>(copy.size()), copy.data());
  return Write(output, event);
}

int AlsaMidi::TakeShort(MidiHandle handle, std::uint32_t word) {
  const std::string bytes = ShortMessageBytes(word);
  Output& output = outputs_[handle];
  snd_seq_event_t event;
  snd_seq_ev_clear(&event);
  snd_midi_event_reset_encode(encoder_);
  const long used = snd_midi_event_encode(encoder_, reinterpret_cast<const unsigned char*>(bytes.data()),
                                          static_cast<long>(bytes.size()), &event);
  const bool channel_message = (word & 0xFFU) >= 0x80 && (word & 0xFFU) < 0xF0;
  if (!channel_message || used != static_cast<long>(bytes.size()) || event.type == SND_SEQ_EVENT_NONE) {
    return kMidiInvalidParameter;
  }
  // Short messages go at once as long as what is still to leave fits a piece.
  std::this_thread::sleep_until(output.pace.Free() - output.pace.TimeFor(kPieceBytes));
  // The kernel leaves out a status byte that it sent before, which an instrument that was off meanwhile can't know. Any
  // bytes make it forget; no bytes are enough.
  if (output.is_cable) {
    if (const int result = WriteBytes(output, {})) return result;
  }
  const int result = Write(output, event);
  if (result == kMidiOk) output.pace.Give(Pace::Clock::now(), static_cast<std::uint32_t>(bytes.size()));
  return result;
}

int AlsaMidi::TakeLong(MidiHandle handle, std::string_view bytes) {
  Output& output = outputs_[handle];
  return SendPieces(bytes, output.pace,
                    {[&](std::string_view piece) { return WriteBytes(output, piece); }, stop_,
                     bytes.size() > kPieceBytes ? progress_ : MidiProgress()});
}

int AlsaMidi::Join(MidiHandle in, MidiHandle out) {
  const PortAddress from = inputs_[in];
  const PortAddress to = outputs_[out].destination;
  auto guard = std::make_unique<ThruGuard>(from, to);
  const int result = Subscribe(from, to);
  if (result == kMidiOk) guards_[in] = std::move(guard);
  return result;
}

int AlsaMidi::Part(MidiHandle in, MidiHandle out) {
  const int result = Unsubscribe(inputs_[in], outputs_[out].destination);
  guards_.erase(in);
  return result;
}

}  // namespace zentaline
