// See watermark_driver.h.
#include <host/controls/watermark_driver.h>
#include <host/controls/host_text.h>
#include <host/controls/stored_lists.h>

#include <colordlg.h>
#include <commctrl.h>
#include <kvcore.h>
#include <kvlist.h>
#include <module/resources/resource.h>
#include <module/resources/string_ids.h>
#include <platform/security/access.h>
#include <platform/window/input.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kvhost {
namespace {

constexpr EntryList kWatermarks = {IDC_LIST_WATERMARK, "watermark"};
constexpr int kOtherColour = 7;
constexpr double kFarAway = 99999;  // no page is that large

bool IsNumber(const std::string& text) {
    const size_t sign = text.rfind('-', 0) == 0 ? 1 : 0;
    return text.size() > sign && text.size() <= 6 &&
           text.find_first_not_of("0123456789", sign) == std::string::npos;
}

struct NumberField {
    const char* what;
    int edit, spin;
    std::optional<std::string> WatermarkWish::*wish;
};
// option, edit, its arrows, what is asked for
constexpr NumberField kNumbers[] = {
    {"--size", IDC_EDIT_WM_SIZE, IDC_SPIN_WM_SIZE, &WatermarkWish::size},
    {"--angle", IDC_EDIT_WM_ANGLE, IDC_SPIN_WM_ANGLE, &WatermarkWish::angle},
    {"--x", IDC_EDIT_WM_POSITION_X, IDC_SPIN_WM_POSITION_X, &WatermarkWish::x},
    {"--y", IDC_EDIT_WM_POSITION_Y, IDC_SPIN_WM_POSITION_Y, &WatermarkWish::y},
};

SetOutcome TypeNumber(HWND editor, const NumberField& field, const std::string& number) {
    int low = 0, high = 0;
    SendDlgItemMessageA(editor, field.spin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                        reinterpret_cast<LPARAM>(&high));
    const long value = IsNumber(number) ? std::strtol(number.c_str(), nullptr, 10) : 0;
    if (!IsNumber(number) || value < low || value > high) {
        return Refuse(kBadInput, std::string(field.what) + ": " + Quoted(number) + " is not taken",
                      "a whole number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    const SetOutcome typed = TypeField(editor, field.edit, field.what, std::to_string(value));
    LeaveFields(editor);
    return typed;
}

SetOutcome ChooseTypeface(HWND editor, const std::string& font) {
    const std::vector<ChoiceText> faces = EntriesOf(GetDlgItem(editor, IDC_COMBO_WM_FACE));
    int row = -1;
    const SetOutcome found = FindEntry(faces, "installed typeface", font, row);
    if (found.status != kDone) return found;
    kv::input::Choose(GetDlgItem(editor, IDC_COMBO_WM_FACE), row);
    return {};
}

void ChooseStyle(HWND editor, const WatermarkWish& watermark) {
    const HWND menu = GetDlgItem(editor, IDC_COMBO_WM_STYLE);
    const auto now = static_cast<int>(SendMessageA(menu, CB_GETCURSEL, 0, 0));
    const bool bold = watermark.bold.value_or((now & 1) != 0);
    const bool italic = watermark.italic.value_or((now & 2) != 0);
    kv::input::Choose(menu, (bold ? 1 : 0) + (italic ? 2 : 0));
}

bool ParseColour(const std::string& text, unsigned (&parts)[3]) {
    if (text.size() != 6 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
        return false;
    }
    for (size_t i = 0; i < 3; ++i) {
        parts[i] = static_cast<unsigned>(std::strtoul(text.substr(2 * i, 2).c_str(), nullptr, 16));
    }
    return true;
}

// The longer side of the paper in force, in inches; 0 when it is not known.
double LongerSide(Session& session) {
    constexpr double kTenthsPerInch = 254, kHundredthsPerInch = 100;
    const auto& settings = *reinterpret_cast<const DEVMODEA*>(session.record().data());
    PrinterBlock& printer = session.printer();
    PaperSizeInfo paper{};
    if (!GetPaperSize(&printer, settings.dmPaperSize, &paper)) {
        const ListHandle list = QDMMLTReadPaper(&printer);
        CustomPaperRecord record{};
        QDMMLTGetPaperWithID(list, &printer, &record, static_cast<DWORD>(settings.dmPaperSize));
        QDMMLTCancelPaper(list, &printer);
        paper = {static_cast<LONG>(record.widthTenths), static_cast<LONG>(record.heightTenths),
                 kPaperUnitMillimetre};
    }
    const LONG longer = std::max(paper.width, paper.length);
    return longer / (paper.unit == kPaperUnitInch ? kHundredthsPerInch : kTenthsPerInch);
}

}  // namespace

// The editor takes per cent of half the page, as its picture shows that: whole pixels, and as many
// of them per inch.
SetOutcome WatermarkDriver::TypePlace(HWND editor, const WatermarkWish& watermark) {
    constexpr double kLongestSide = 170, kPointsOfHalfAnInch = 36;
    const double longer = LongerSide(session_);
    RECT picture{};
    GetClientRect(GetDlgItem(editor, IDC_PIC_WM_PAPER), &picture);
    const struct {
        const NumberField& field;
        const std::optional<long>& points;
        LONG pixels;
    } rows[] = {{kNumbers[2], watermark.points.first, picture.right},
                {kNumbers[3], watermark.points.second, picture.bottom}};
    for (const auto& row : rows) {
        if (!row.points || row.pixels <= 0 || longer <= 0) continue;
        const double scale = std::floor(kLongestSide / longer);
        const double percent =
            static_cast<double>(*row.points) * scale * 100 / (row.pixels * kPointsOfHalfAnInch);
        const SetOutcome typed =
            TypeNumber(editor, row.field,
                       std::to_string(std::lround(std::clamp(percent, -kFarAway, kFarAway))));
        if (typed.status != kDone) return typed;
    }
    return {};
}

// A colour that the menu lacks is mixed in the colour dialog that "Others" opens.
SetOutcome WatermarkDriver::ChooseColour(HWND editor, const std::string& colour) {
    unsigned parts[3] = {};
    if (!ParseColour(colour, parts)) {
        return Refuse(kBadInput, "--colour: " + Quoted(colour) + " is no colour",
                      "six hexadecimal digits, RRGGBB, as CC0000");
    }
    return driver_.InDialog(
        [&] { kv::input::Choose(GetDlgItem(editor, IDC_COMBO_WM_COLOR), kOtherColour); },
        "--colour",
        [&](HWND dialog) {
            constexpr int kEdits[] = {COLOR_RED, COLOR_GREEN, COLOR_BLUE};
            for (int i = 0; i < 3; ++i) {
                const SetOutcome typed =
                    TypeField(dialog, kEdits[i], "--colour", std::to_string(parts[i]));
                if (typed.status != kDone) return typed;
            }
            return SetOutcome();
        });
}

SetOutcome WatermarkDriver::Fill(HWND editor, const WatermarkWish& watermark, bool isNew) {
    SetOutcome outcome;
    const auto type = [&](int id, const char* what, const std::string& text) {
        if (outcome.status == kDone) outcome = TypeField(editor, id, what, text);
    };
    if (isNew || watermark.newName) {
        type(IDC_EDIT_WM_NAME, isNew ? "NAME" : "--name",
             watermark.newName.value_or(watermark.name));
    }
    if (watermark.text) type(IDC_EDIT_WM_TEXT, "--text", *watermark.text);
    if (outcome.status == kDone && watermark.font) {
        outcome = ChooseTypeface(editor, *watermark.font);
    }
    if (outcome.status == kDone && (watermark.bold || watermark.italic)) {
        ChooseStyle(editor, watermark);
    }
    if (outcome.status == kDone && watermark.colour) {
        outcome = ChooseColour(editor, *watermark.colour);
    }
    if (outcome.status == kDone) outcome = TypePlace(editor, watermark);
    for (const NumberField& field : kNumbers) {
        const std::optional<std::string>& number = watermark.*field.wish;
        if (outcome.status == kDone && number) outcome = TypeNumber(editor, field, *number);
    }
    if (outcome.status != kDone || (!isNew && !watermark.answers.isCommon)) return outcome;
    const bool common = watermark.answers.isCommon.value_or(false);
    if (common && !kv::ActsAsAdministrator()) return Refuse(kRefused, kCommonTakesAdministrator);
    const HWND choice = GetDlgItem(editor, common ? IDC_RADIO_WM_SHARED : IDC_RADIO_WM_OWN);
    if (IsWindowEnabled(choice)) kv::input::Click(choice);
    return outcome;
}

SetOutcome WatermarkDriver::InEditor(unsigned opener, const WatermarkWish& watermark) {
    const ListReplies replies(session_, driver_, watermark.answers);
    return InOwnersDialog(driver_, opener, watermark.name, [&](HWND editor) {
        return Fill(editor, watermark, opener == IDC_BTN_WATERMARK_ADD);
    });
}

SetOutcome WatermarkDriver::MayChange(unsigned button, const std::string& name, const char* what) {
    if (IsWindowEnabled(driver_.WindowOf(*FindControl(button)))) return {};
    return Refuse(kRefused,
                  Quoted(name) + " is the printer's, or everybody's: it cannot be " + what);
}

SetOutcome WatermarkDriver::Add(const WatermarkWish& watermark) {
    const HWND button = driver_.WindowOf(*FindControl(IDC_BTN_WATERMARK_ADD));
    if (!IsWindowEnabled(button)) {
        return Refuse(kRefused, FullListText(session_, kWatermarkCalls,
                                             ModuleText(session_, IDS_WATERMARK_LIST_FULL)));
    }
    const KeptChoice kept(driver_, IDC_LIST_WATERMARK);
    SetOutcome outcome = InEditor(IDC_BTN_WATERMARK_ADD, watermark);
    if (outcome.status == kDone && watermark.answers.isCommon.value_or(false) &&
        !IsCommon(watermark.name)) {
        outcome.notes.push_back(Quoted(watermark.name) + kCommonIsFull);
    }
    return outcome;
}

bool WatermarkDriver::IsCommon(const std::string& name) const {
    std::vector<Listed<WatermarkRecord>> listed;
    ReadListed(session_, kWatermarkCalls, listed);
    return std::any_of(listed.begin(), listed.end(), [&](const Listed<WatermarkRecord>& entry) {
        return entry.isCommon && ToUtf8(entry.record.name) == name;
    });
}

SetOutcome WatermarkDriver::Edit(const WatermarkWish& watermark) {
    return AtEntry(
        driver_, kWatermarks, watermark.name,
        [&] { return MayChange(IDC_BTN_WATERMARK_EDIT, watermark.name, "changed"); },
        [&] { return InEditor(IDC_BTN_WATERMARK_EDIT, watermark); });
}

SetOutcome WatermarkDriver::Delete(const std::string& name) {
    return AtEntry(
        driver_, kWatermarks, name,
        [&] { return MayChange(IDC_BTN_WATERMARK_DELETE, name, "deleted"); },
        [&] { return PressDelete(driver_, IDC_BTN_WATERMARK_DELETE); });
}

}  // namespace kvhost
