// The Python module `sorrelin`: the decoder and the phone-log reader for scripts and notebooks.
//
//     import sorrelin
//     m = sorrelin.decode("sync", 5, bytes.fromhex("0105...b2"), band_class=1)
//     m["name"], m["result"], m["text"], m["fields"][0]["P_REV"]
//     for m in sorrelin.read_diag("phone.qmdl", band_class=1):
//         print(m["timestamp"], m["name"])
//
// A decoded message is a dict: channel (its word), p_rev, band_class, result (0, 1 or 3), name
// (the summary name), text (the detail text, LF line ends) and fields (the records of the
// text as dicts, from the decoder's JSON: "@record" the header, then the fields in print
// order, scalars as numbers, bit strings as "0x..." strings, annotations as "NAME.annotation").
#include <pybind11/pybind11.h>

#include <memory>
#include <string>

#include "api/names.h"
#include "cdmaSorrelin.hpp"
#include "diag_log.h"

namespace py = pybind11;

namespace {

const char* const kWords[] = {"", "sync", "paging", "access", "ftc", "rtc"};

int channel_of(const py::object& ch) {
  if (py::isinstance<py::str>(ch)) {
    const std::string w = ch.cast<std::string>();
    for (int i = 1; i <= 5; ++i)
      if (w == kWords[i]) return i;
    throw py::value_error("unknown channel '" + w + "' (sync, paging, access, ftc, rtc or 1..5)");
  }
  const int c = ch.cast<int>();
  if (c < 1 || c > 5) throw py::value_error("channel " + std::to_string(c) + " is not 1..5");
  return c;
}

std::uint8_t octet_of(int v, const char* what) {
  if (v < 0 || v > 255) throw py::value_error(std::string(what) + " must be 0..255");
  return static_cast<std::uint8_t>(v);
}

// The octets of a bytes-like object (bytes, bytearray, memoryview, ...).
std::string octets_of(const py::object& data) {
  if (py::isinstance<py::str>(data) || !py::isinstance<py::buffer>(data))
    throw py::type_error("data must be bytes-like; use bytes.fromhex() for hex");
  const py::buffer_info b = data.cast<py::buffer>().request();
  if (b.ndim > 1 || (b.ndim == 1 && b.strides[0] != b.itemsize))
    throw py::type_error("data must be contiguous bytes");
  return std::string(static_cast<const char*>(b.ptr), static_cast<std::size_t>(b.size * b.itemsize));
}

class PyDecoder {
 public:
  explicit PyDecoder(bool all_broadcast) : dec_(cs::DecodeOptions{false, all_broadcast}) {}

  // One message; with `capsule` the data starts with its length octet (MSG_LENGTH).
  py::dict decode(const py::object& channel, int p_rev, const py::object& data, int band_class, bool capsule) {
    const int ch = channel_of(channel);
    std::string octets = octets_of(data);
    if (octets.empty()) throw py::value_error("no message octets");
    const auto* p = reinterpret_cast<const std::uint8_t*>(octets.data());
    std::size_t len = octets.size();
    if (capsule) {
      if (static_cast<unsigned char>(octets[0]) != octets.size())
        throw py::value_error("MSG_LENGTH is " + std::to_string(static_cast<unsigned char>(octets[0])) +
                              " but the capsule has " + std::to_string(octets.size()) + " octets");
      octets.push_back('\0');   // the library may count one octet past the capsule
      p = reinterpret_cast<const std::uint8_t*>(octets.data()) + 1;
      len = cs::diag::library_len(ch, octets.size() - 1);
    }
    return run(ch, octet_of(p_rev, "p_rev"), octet_of(band_class, "band_class"), p, len);
  }

  py::dict run(int ch, std::uint8_t p_rev, std::uint8_t band, const std::uint8_t* p, std::size_t len) {
    text_.clear();
    json_.clear();
    const int rc = dec_.details(text_, band, p_rev, ch, p, len);
    dec_.details_json(json_, band, p_rev, ch, p, len);
    static const py::object loads = py::module_::import("json").attr("loads");
    const py::dict parsed = loads(py::str(json_));
    py::dict m;
    m["channel"] = kWords[ch];
    m["p_rev"] = p_rev;
    m["band_class"] = band;
    m["result"] = rc;
    m["name"] = parsed["name"];
    m["text"] = py::str(text_);
    m["fields"] = parsed["records"];
    return m;
  }

 private:
  cs::Decoder dec_;
  std::string text_, json_;
};

// The 1x signalling messages of a DIAG log, one dict each: those of a decoded message and
// timestamp (text), time (seconds since 1980-01-06, GPS time), log_code and capsule (bytes);
// a message that does not check as a capsule has result None and `error` saying why.
class DiagMessages {
 public:
  DiagMessages(const std::string& path, int band_class, const py::object& p_rev, const py::object& mob_p_rev,
               bool dlf, bool all_broadcast)
      : dec_(all_broadcast), band_(octet_of(band_class, "band_class")) {
    std::string error;
    if (!reader_.open(path, dlf ? cs::diag::Container::dlf : cs::diag::container_of(path), error))
      throw py::value_error(path + ": " + error);
    if (!mob_p_rev.is_none()) rev_.limit(octet_of(mob_p_rev.cast<int>(), "mob_p_rev"));
    if (!p_rev.is_none()) rev_.fix(octet_of(p_rev.cast<int>(), "p_rev"));
  }

  py::dict next() {
    cs::diag::LogItem item;
    for (;;) {
      if (!reader_.next(item)) {
        if (!reader_.error().empty()) throw py::value_error("read error: " + reader_.error());
        throw py::stop_iteration();
      }
      if (cs::diag::message_of(item, m_)) break;
      ++others_;
    }
    py::dict d;
    if (m_.check == cs::diag::CapsuleCheck::ok) {
      rev_.follow(m_.channel, m_.msg(), m_.len(), band_);
      d = dec_.run(m_.channel, rev_.p_rev(), band_, m_.msg(), m_.len());
    } else {
      d["channel"] = kWords[m_.channel];
      d["p_rev"] = rev_.p_rev();
      d["band_class"] = band_;
      d["result"] = py::none();
      d["name"] = cs::summary_text(m_.channel, m_.capsule_size() > 1 ? m_.capsule()[1] : 0);
      d["text"] = "";
      d["fields"] = py::list();
      d["error"] = cs::diag::describe(m_.check, m_.channel);
    }
    d["timestamp"] = cs::diag::format_timestamp(m_.timestamp);
    d["time"] = cs::diag::timestamp_seconds(m_.timestamp);
    d["log_code"] = m_.code;
    d["capsule"] = py::bytes(reinterpret_cast<const char*>(m_.capsule()), m_.capsule_size());
    return d;
  }

  // What was passed over so far.
  py::dict counts() const {
    py::dict c;
    c["other_log_items"] = others_;
    c["other_frames"] = reader_.counts().other_frames;
    c["damaged_frames"] = reader_.counts().damaged;
    return c;
  }

 private:
  cs::diag::LogReader reader_;
  cs::diag::Revision rev_;
  cs::diag::Message m_;
  PyDecoder dec_;
  std::uint8_t band_;
  std::uint64_t others_ = 0;
};

}  // namespace

PYBIND11_MODULE(sorrelin, m) {
  m.doc() = "Decoding of CDMA2000 (TIA/EIA-95, IS-2000) air-interface Layer-3 signalling messages.";

  py::class_<PyDecoder>(m, "Decoder",
                        "A decoder that keeps, per channel, what one message carries over to the next "
                        "(feed it one stream of messages).")
      .def(py::init<bool>(), py::arg("all_broadcast") = false,
           "all_broadcast: decode every broadcast message of the paging channel that has a layout.")
      .def("decode", &PyDecoder::decode, py::arg("channel"), py::arg("p_rev"), py::arg("data"),
           py::arg("band_class") = 0, py::arg("capsule") = false,
           "Decodes one message (bytes from its type octet through its CRC; with capsule=True from its "
           "length octet) on channel 'sync', 'paging', 'access', 'ftc', 'rtc' or 1..5. Returns a dict: "
           "channel, p_rev, band_class, result, name, text, fields.");

  m.def(
      "decode",
      [](const py::object& channel, int p_rev, const py::object& data, int band_class, bool capsule,
         bool all_broadcast) { return PyDecoder(all_broadcast).decode(channel, p_rev, data, band_class, capsule); },
      py::arg("channel"), py::arg("p_rev"), py::arg("data"), py::arg("band_class") = 0, py::arg("capsule") = false,
      py::arg("all_broadcast") = false, "Decodes one message with a fresh Decoder; see Decoder.decode.");

  py::class_<DiagMessages>(m, "DiagLog", "The 1x signalling messages of a Qualcomm DIAG log, decoded.")
      .def("__iter__", [](DiagMessages& d) -> DiagMessages& { return d; })
      .def("__next__", &DiagMessages::next)
      .def_property_readonly("counts", &DiagMessages::counts,
                             "What was passed over: other log items, other DIAG frames, damaged frames.");

  m.def(
      "read_diag",
      [](const std::string& path, int band_class, const py::object& p_rev, const py::object& mob_p_rev, bool dlf,
         bool all_broadcast) {
        return std::make_unique<DiagMessages>(path, band_class, p_rev, mob_p_rev, dlf, all_broadcast);
      },
      py::arg("path"), py::arg("band_class") = 0, py::arg("p_rev") = py::none(), py::arg("mob_p_rev") = py::none(),
      py::arg("dlf") = false, py::arg("all_broadcast") = false,
      "Iterates over the 1x signalling messages of a DIAG log (.qmdl, .mi2log; .dlf by its name or with "
      "dlf=True): a dict per message as decode() gives, with timestamp, time, log_code and capsule. The P_REV "
      "follows the base station's Sync Channel and Extended System Parameters Messages, no higher than "
      "mob_p_rev, unless p_rev fixes it. A capsule that does not check has result None and an 'error'.");
}
