// Short messages: the SMS transport layer message (C.S0015 3.4) with its parameters, and the
// bearer data subparameters of the teleservice layer (C.S0015 4.5) inside its Bearer Data.
//
// Every parameter and subparameter states its length in octets; each is read inside that
// length (a field that would run past it gives result 3) and the walk moves on to its declared
// end, so reserved padding and fields of later revisions are passed over.
#include "sms/sms.h"

#include "layout/layout.h"
#include "sms/alphabet.h"
#include "sms/chars.h"

namespace cs {
namespace {

// ---- Transport layer parameters (C.S0015 3.4.3) ----

// Teleservice Identifier (3.4.3.1).
struct TeleserviceId {
  std::uint16_t identifier;
};
template <class W>
void layout(W& w, TeleserviceId& r, const Ctx&) {
  w(F(identifier, 16));
}

// Service Category (3.4.3.2).
struct ServiceCategory {
  std::uint16_t category;
};
template <class W>
void layout(W& w, ServiceCategory& r, const Ctx&) {
  w(F(category, 16));
}

// Originating and Destination Address (3.4.3.3). DTMF digits (DIGIT_MODE 0) are 4 bits;
// otherwise 8-bit characters: ASCII for a telephone number or an e-mail address, binary
// for the other data network addresses.
struct Address {
  std::uint8_t digit_mode, number_mode, number_type, number_plan, num_fields;
  PoolArray<std::uint8_t> chari;
};
template <class W>
void layout(W& w, Address& r, const Ctx&) {
  w(F(digit_mode, 1), F(number_mode, 1));
  if (r.digit_mode) {
    w(F(number_type, 3));
    if (!r.number_mode) w(F(number_plan, 4));
  }
  w(F(num_fields, 8));
  constexpr std::uint8_t kInternetEmail = 2;   // data network address type
  const Charset cs = !r.digit_mode ? Charset::dtmf
                     : !r.number_mode || r.number_type == kInternetEmail ? Charset::ascii
                                                                          : Charset::none;
  chars(w, "chari", r.chari, r.num_fields, r.digit_mode ? 8 : 4, cs);
}

// Originating and Destination Subaddress (3.4.3.4).
struct Subaddress {
  std::uint8_t type, odd, num_fields;
  PoolArray<std::uint8_t> chari;
};
template <class W>
void layout(W& w, Subaddress& r, const Ctx&) {
  w(F(type, 3), F(odd, 1), F(num_fields, 8));
  w.scalars("chari", r.chari, r.num_fields, 8);
}

// Bearer Reply Option (3.4.3.5).
struct BearerReplyOption {
  std::uint8_t reply_seq;
};
template <class W>
void layout(W& w, BearerReplyOption& r, const Ctx&) {
  w(F(reply_seq, 6), reserved(2));
}

// Cause Codes (3.4.3.6): CAUSE_CODE only when ERROR_CLASS reports an error.
struct CauseCodes {
  std::uint8_t reply_seq, error_class, cause_code;
};
template <class W>
void layout(W& w, CauseCodes& r, const Ctx&) {
  w(F(reply_seq, 6), F(error_class, 2));
  if (r.error_class != 0) w(F(cause_code, 8));
}

// ---- Bearer data subparameters (C.S0015 4.5) ----

// Message Identifier (4.5.1).
struct MessageIdentifier {
  std::uint8_t message_type;
  std::uint16_t message_id;
  std::uint8_t header_ind;
};
template <class W>
void layout(W& w, MessageIdentifier& r, const Ctx&) {
  w(F(message_type, 4), F(message_id, 16), F(header_ind, 1), reserved(3));
}

// The characters of a text field: fields of the encoding's size, or packed GSM 7-bit text.
template <class W, class R>
void text(W& w, R& r, const Alphabet& a, std::uint32_t n) {
  if (a.cs == Charset::gsm7) {
    gsm7_packed(w, r.packed_octet, r.chari, n);
  } else {
    chars(w, "chari", r.chari, n, a.width, a.cs);
  }
}

// User Data (4.5.2). MESSAGE_TYPE is sent for the two encodings whose character set it
// selects; the characters follow in the size of the encoding.
struct UserData {
  std::uint8_t msg_encoding, message_type, num_fields;
  PoolArray<std::uint8_t> packed_octet;
  PoolArray<std::uint16_t> chari;
};
template <class W>
void layout(W& w, UserData& r, const Ctx&) {
  w(F(msg_encoding, 5));
  if (carries_message_type(r.msg_encoding)) w(F(message_type, 8));
  w(F(num_fields, 8));
  const Alphabet a = alphabet(r.msg_encoding, r.message_type);
  // An encoding (or an IS-91 message type, a GSM data coding scheme) whose character size no
  // public table gives: the characters cannot be told apart, so the burst is refused.
  if (a.width == 0) {
    w.reject(Rc::count);
    return;
  }
  text(w, r, a, r.num_fields);
}

// User Response Code (4.5.3).
struct UserResponseCode {
  std::uint8_t response_code;
};
template <class W>
void layout(W& w, UserResponseCode& r, const Ctx&) {
  w(F(response_code, 8));
}

// Message Center Time Stamp, Validity Period - Absolute and Deferred Delivery Time - Absolute
// (4.5.4, 4.5.5, 4.5.7): six BCD octets.
struct TimeStamp {
  std::uint8_t year, month, day, hours, minutes, seconds;
};
template <class W>
void layout(W& w, TimeStamp& r, const Ctx&) {
  w(F(year, 8), F(month, 8), F(day, 8), F(hours, 8), F(minutes, 8), F(seconds, 8));
}

// Validity Period - Relative (4.5.6).
struct ValidityRelative {
  std::uint8_t validity;
};
template <class W>
void layout(W& w, ValidityRelative& r, const Ctx&) {
  w(F(validity, 8));
}

// Deferred Delivery Time - Relative (4.5.8).
struct DeliveryRelative {
  std::uint8_t delivery_time_relative;
};
template <class W>
void layout(W& w, DeliveryRelative& r, const Ctx&) {
  w(F(delivery_time_relative, 8));
}

// Priority Indicator (4.5.9).
struct PriorityIndicator {
  std::uint8_t priority;
};
template <class W>
void layout(W& w, PriorityIndicator& r, const Ctx&) {
  w(F(priority, 2), reserved(6));
}

// Privacy Indicator (4.5.10).
struct PrivacyIndicator {
  std::uint8_t privacy;
};
template <class W>
void layout(W& w, PrivacyIndicator& r, const Ctx&) {
  w(F(privacy, 2), reserved(6));
}

// Reply Option (4.5.11). REPORT_REQ took a reserved bit in C.S0015-A.
struct ReplyOption {
  std::uint8_t user_ack_req, dak_req, read_ack_req, report_req;
};
template <class W>
void layout(W& w, ReplyOption& r, const Ctx&) {
  w(F(user_ack_req, 1), F(dak_req, 1), F(read_ack_req, 1), F(report_req, 1), reserved(4));
}

// Number of Messages (4.5.12): two BCD digits.
struct NumberOfMessages {
  std::uint8_t message_ct;
};
template <class W>
void layout(W& w, NumberOfMessages& r, const Ctx&) {
  w(F(message_ct, 8));
}

// Alert on Message Delivery (4.5.13).
struct AlertOnDelivery {
  std::uint8_t alert_priority;
};
template <class W>
void layout(W& w, AlertOnDelivery& r, const Ctx&) {
  w(F(alert_priority, 2), reserved(6));
}

// Language Indicator (4.5.14).
struct LanguageIndicator {
  std::uint8_t language;
};
template <class W>
void layout(W& w, LanguageIndicator& r, const Ctx&) {
  w(F(language, 8));
}

// Call-Back Number (4.5.15): DTMF digits, or ASCII characters with their number type and plan.
struct CallBackNumber {
  std::uint8_t digit_mode, number_type, number_plan, num_fields;
  PoolArray<std::uint8_t> chari;
};
template <class W>
void layout(W& w, CallBackNumber& r, const Ctx&) {
  w(F(digit_mode, 1));
  if (r.digit_mode) w(F(number_type, 3), F(number_plan, 4));
  w(F(num_fields, 8));
  chars(w, "chari", r.chari, r.num_fields, r.digit_mode ? 8 : 4, r.digit_mode ? Charset::ascii : Charset::dtmf);
}

// Message Display Mode (4.5.16).
struct MessageDisplayMode {
  std::uint8_t msg_display_mode;
};
template <class W>
void layout(W& w, MessageDisplayMode& r, const Ctx&) {
  w(F(msg_display_mode, 2), reserved(6));
}

// One encoding of the Multiple Encoding User Data (4.5.17). No MESSAGE_TYPE is sent here, so
// the two encodings that need one have no character size.
struct EncodedText {
  std::uint8_t msg_encoding, num_fields;
  PoolArray<std::uint8_t> packed_octet;
  PoolArray<std::uint16_t> chari;
};
template <class W>
void layout(W& w, EncodedText& r, const Ctx&) {
  w(F(msg_encoding, 5), F(num_fields, 8));
  const Alphabet a = carries_message_type(r.msg_encoding) ? Alphabet{} : alphabet(r.msg_encoding, 0);
  // As in User Data: characters of no known size refuse the burst.
  if (a.width == 0) {
    w.reject(Rc::count);
    return;
  }
  text(w, r, a, r.num_fields);
}

// Multiple Encoding User Data (4.5.17): encodings until fewer than 8 bits (the padding) are left.
struct MultipleEncodingUserData {
  PoolArray<EncodedText> encoding;
};
template <class W>
void layout(W& w, MultipleEncodingUserData& r, const Ctx& c) {
  w.list_to_end("encoding", r.encoding, [](std::uint64_t bits) { return static_cast<std::uint32_t>(bits / 13 + 1); }, c);
}

// Message Deposit Index (4.5.18).
struct MessageDepositIndex {
  std::uint16_t message_deposit_index;
};
template <class W>
void layout(W& w, MessageDepositIndex& r, const Ctx&) {
  w(F(message_deposit_index, 16));
}

// One category of the Service Category Program Data (4.5.19); its characters are in the
// encoding the subparameter names first.
struct CategoryProgram {
  std::uint8_t operation_code;
  std::uint16_t service_category;
  std::uint8_t language, max_messages, alert_option, num_fields;
  PoolArray<std::uint8_t> packed_octet;
  PoolArray<std::uint16_t> chari;
};
struct CategoryCtx : Ctx {
  Alphabet alphabet;
};
template <class W>
void layout(W& w, CategoryProgram& r, const CategoryCtx& c) {
  w(F(operation_code, 4), F(service_category, 16), F(language, 8), F(max_messages, 8), F(alert_option, 4),
    F(num_fields, 8));
  text(w, r, c.alphabet, r.num_fields);
}

struct ServiceCategoryProgramData {
  std::uint8_t msg_encoding;
  PoolArray<CategoryProgram> category;
};
template <class W>
void layout(W& w, ServiceCategoryProgramData& r, const Ctx& c) {
  w(F(msg_encoding, 5));
  CategoryCtx cc{c};
  cc.alphabet = carries_message_type(r.msg_encoding) ? Alphabet{} : alphabet(r.msg_encoding, 0);
  // Category names of no known character size: refused, as in User Data.
  if (cc.alphabet.width == 0) {
    w.reject(Rc::count);
    return;
  }
  w.list_to_end("category", r.category, [](std::uint64_t bits) { return static_cast<std::uint32_t>(bits / 48 + 1); }, cc);
}

// One result of the Service Category Program Results (4.5.20).
struct CategoryResult {
  std::uint16_t service_category;
  std::uint8_t category_result;
};
template <class W>
void layout(W& w, CategoryResult& r, const Ctx&) {
  w(F(service_category, 16), F(category_result, 4), reserved(4));
}

struct ServiceCategoryProgramResults {
  PoolArray<CategoryResult> result;
};
template <class W>
void layout(W& w, ServiceCategoryProgramResults& r, const Ctx& c) {
  w.list_to_end("result", r.result, [](std::uint64_t bits) { return static_cast<std::uint32_t>(bits / 24 + 1); }, c);
}

// Message Status (4.5.21).
struct MessageStatus {
  std::uint8_t error_class, msg_status_code;
};
template <class W>
void layout(W& w, MessageStatus& r, const Ctx&) {
  w(F(error_class, 2), F(msg_status_code, 6));
}

// TP-Failure Cause (4.5.22): the GSM cause of an interworking failure.
struct TpFailureCause {
  std::uint8_t tp_failure_cause;
};
template <class W>
void layout(W& w, TpFailureCause& r, const Ctx&) {
  w(F(tp_failure_cause, 8));
}

// One bearer data subparameter: SUBPARAMETER_ID, SUBPARAM_LEN and the subparameter, read
// inside its length. The Enhanced VMN subparameters and identifiers this decoder does not
// know are shown as their octets.
struct Subparameter {
  std::uint8_t subparameter_id, subparam_len;
  MessageIdentifier message_identifier;
  UserData user_data;
  UserResponseCode user_response_code;
  TimeStamp time_stamp;
  ValidityRelative validity_relative;
  DeliveryRelative delivery_relative;
  PriorityIndicator priority_indicator;
  PrivacyIndicator privacy_indicator;
  ReplyOption reply_option;
  NumberOfMessages number_of_messages;
  AlertOnDelivery alert;
  LanguageIndicator language_indicator;
  CallBackNumber call_back_number;
  MessageDisplayMode message_display_mode;
  MultipleEncodingUserData multiple_encoding;
  MessageDepositIndex message_deposit_index;
  ServiceCategoryProgramData program_data;
  ServiceCategoryProgramResults program_results;
  MessageStatus message_status;
  TpFailureCause tp_failure_cause;
  PoolArray<std::uint8_t> subparam_data;
};
template <class W>
void layout(W& w, Subparameter& r, const Ctx& c) {
  w(F(subparameter_id, 8), F(subparam_len, 8));
  const std::uint64_t len = 8u * r.subparam_len;
  switch (r.subparameter_id) {
    case 0: w.sized("message_identifier", r.message_identifier, len, c); break;
    case 1: w.sized("user_data", r.user_data, len, c); break;
    case 2: w.sized("user_response_code", r.user_response_code, len, c); break;
    case 3: w.sized("message_center_time_stamp", r.time_stamp, len, c); break;
    case 4: w.sized("validity_period_absolute", r.time_stamp, len, c); break;
    case 5: w.sized("validity_period_relative", r.validity_relative, len, c); break;
    case 6: w.sized("deferred_delivery_time_absolute", r.time_stamp, len, c); break;
    case 7: w.sized("deferred_delivery_time_relative", r.delivery_relative, len, c); break;
    case 8: w.sized("priority_indicator", r.priority_indicator, len, c); break;
    case 9: w.sized("privacy_indicator", r.privacy_indicator, len, c); break;
    case 10: w.sized("reply_option", r.reply_option, len, c); break;
    case 11: w.sized("number_of_messages", r.number_of_messages, len, c); break;
    case 12: w.sized("alert_on_message_delivery", r.alert, len, c); break;
    case 13: w.sized("language_indicator", r.language_indicator, len, c); break;
    case 14: w.sized("call_back_number", r.call_back_number, len, c); break;
    case 15: w.sized("message_display_mode", r.message_display_mode, len, c); break;
    case 16: w.sized("multiple_encoding_user_data", r.multiple_encoding, len, c); break;
    case 17: w.sized("message_deposit_index", r.message_deposit_index, len, c); break;
    case 18: w.sized("service_category_program_data", r.program_data, len, c); break;
    case 19: w.sized("service_category_program_results", r.program_results, len, c); break;
    case 20: w.sized("message_status", r.message_status, len, c); break;
    case 21: w.sized("tp_failure_cause", r.tp_failure_cause, len, c); break;
    default: w.scalars("subparam_data", r.subparam_data, r.subparam_len, 8); break;
  }
}

// Bearer Data (3.4.3.7): subparameters until fewer than 8 bits are left.
struct BearerData {
  PoolArray<Subparameter> subparameter;
};
template <class W>
void layout(W& w, BearerData& r, const Ctx& c) {
  w.list_to_end("subparameter", r.subparameter, [](std::uint64_t bits) { return static_cast<std::uint32_t>(bits / 16 + 1); }, c);
}

// One transport layer parameter: PARAMETER_ID, PARAMETER_LEN and the parameter, read inside
// its length; an identifier this decoder does not know is shown as its octets.
struct TransportParameter {
  std::uint8_t parameter_id, parameter_len;
  TeleserviceId teleservice_identifier;
  ServiceCategory service_category;
  Address address;
  Subaddress subaddress;
  BearerReplyOption bearer_reply_option;
  CauseCodes cause_codes;
  BearerData bearer_data;
  PoolArray<std::uint8_t> parameter_data;
};
template <class W>
void layout(W& w, TransportParameter& r, const Ctx& c) {
  w(F(parameter_id, 8), F(parameter_len, 8));
  const std::uint64_t len = 8u * r.parameter_len;
  switch (r.parameter_id) {
    case 0: w.sized("teleservice_identifier", r.teleservice_identifier, len, c); break;
    case 1: w.sized("service_category", r.service_category, len, c); break;
    case 2: w.sized("originating_address", r.address, len, c); break;
    case 3: w.sized("originating_subaddress", r.subaddress, len, c); break;
    case 4: w.sized("destination_address", r.address, len, c); break;
    case 5: w.sized("destination_subaddress", r.subaddress, len, c); break;
    case 6: w.sized("bearer_reply_option", r.bearer_reply_option, len, c); break;
    case 7: w.sized("cause_codes", r.cause_codes, len, c); break;
    case 8: w.sized("bearer_data", r.bearer_data, len, c); break;
    default: w.scalars("parameter_data", r.parameter_data, r.parameter_len, 8); break;
  }
}

// The SMS transport layer message (3.4.2): SMS_MSG_TYPE (point-to-point, broadcast,
// acknowledge) and its parameters, which run to the end of the burst.
struct SMSTransportLayerMessage {
  std::uint8_t sms_message_type;
  PoolArray<TransportParameter> subrecord;
};
template <class W>
void layout(W& w, SMSTransportLayerMessage& r, const Ctx& c) {
  w(F(sms_message_type, 8));
  w.list_to_end("subrecord", r.subrecord, [](std::uint64_t bits) { return static_cast<std::uint32_t>(bits / 16 + 1); }, c);
}

}  // namespace

Rc sms_contents(Text& t, unsigned indent, const std::uint8_t* data, std::size_t n, const Ctx& c, Arena& arena) {
  auto* rec = arena.alloc<SMSTransportLayerMessage>(1);
  const Rc rc = decode(*rec, c, arena, data, n, 0, 8u * std::uint64_t{n});
  if (rc == Rc::ok) print(*rec, c, "SMSTransportLayerMessage", indent, t);
  return rc;
}

}  // namespace cs
