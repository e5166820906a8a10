#include "store/json_reader.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

namespace telvar::store {

namespace {

// The library's handler concept on one side, our listener on the other.
class Events : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Events> {
public:
    explicit Events(JsonListener& listener) : listener_(listener) {}

    bool Null() { return listener_.scalar({.type = JsonType::Null, .text = "null", .truth = false}); }
    bool Bool(bool truth) {
        return listener_.scalar({.type = JsonType::Boolean, .text = truth ? "true" : "false", .truth = truth});
    }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return listener_.scalar({.type = JsonType::Number, .text = {text, length}, .truth = false});
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return listener_.scalar({.type = JsonType::Text, .text = {text, length}, .truth = false});
    }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) { return listener_.name({text, length}); }
    bool StartObject() { return listener_.open(JsonType::Object); }
    bool EndObject(rapidjson::SizeType /*count*/) { return listener_.close(JsonType::Object); }
    bool StartArray() { return listener_.open(JsonType::List); }
    bool EndArray(rapidjson::SizeType /*count*/) { return listener_.close(JsonType::List); }

private:
    JsonListener& listener_;
};

[[nodiscard]] std::string describe(rapidjson::ParseErrorCode code) {
    switch (code) {
    case rapidjson::kParseErrorTermination:
        return {};
    case rapidjson::kParseErrorDocumentEmpty:
        return "nothing is there";
    case rapidjson::kParseErrorDocumentRootNotSingular:
        return "something follows the end";
    case rapidjson::kParseErrorObjectMissName:
        return "a member's name is missing";
    case rapidjson::kParseErrorObjectMissColon:
        return "a colon is missing after a member's name";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
        return "a comma or } is missing";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
        return "a comma or ] is missing";
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
    case rapidjson::kParseErrorStringEscapeInvalid:
        return "a text has a control character or a wrong \\ escape";
    case rapidjson::kParseErrorStringMissQuotationMark:
        return "a closing quotation mark is missing";
    case rapidjson::kParseErrorStringInvalidEncoding:
        return "a text is not UTF-8";
    case rapidjson::kParseErrorNumberTooBig:
        return "a number is too large";
    case rapidjson::kParseErrorNumberMissFraction:
    case rapidjson::kParseErrorNumberMissExponent:
        return "a number lacks its last digits";
    default:
        return "no value can be read here";
    }
}

}  // namespace

std::optional<JsonProblem> readJson(std::string_view text, JsonListener& listener) {
    constexpr unsigned flags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag | rapidjson::kParseNumbersAsStringsFlag;
    // The library takes a zero byte for the end of the text.
    if (const auto zero = text.find('\0'); zero != std::string_view::npos) {
        return JsonProblem{.offset = zero, .what = "a zero byte is no text"};
    }
    rapidjson::MemoryStream stream(text.data(), text.size());
    rapidjson::Reader reader;
    Events events(listener);
    const auto result = reader.Parse<flags>(stream, events);
    if (result.IsError()) {
        return JsonProblem{.offset = result.Offset(), .what = describe(result.Code())};
    }
    return std::nullopt;
}

}  // namespace telvar::store
