// Joins the words of a view from the string table, in the order in which a person would name them.
#include "preview/view_words.h"

#include <cstdio>
#include <cstring>

#include "preview/paper_labels.h"
#include "preview/paper_view.h"
#include "preview/shared_view.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/conflicts.h"
#include "settings/booklet.h"
#include "settings/item_catalogue.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

// Words separated as the language does it; what has no room is left out.
class Sentence {
 public:
    Sentence(const SheetContext& context, char* text, std::size_t size)
        : context_(context), text_(text), size_(size) {
        CopyText(text_, size_, "");
    }

    void Add(const char* words) {
        if (words[0] == '\0') return;
        if (text_[0] != '\0') Append(Load(IDS_WORDS_SEPARATOR).text);
        Append(words);
    }
    void Add(UINT id) { Add(Load(id).text); }
    // `id` is a text with one %s.
    void Add(UINT id, const char* value) {
        char words[kMost] = "";
        std::snprintf(words, sizeof words, Load(id).text, value);
        Add(words);
    }

 private:
    static constexpr std::size_t kMost = 128;
    struct Loaded {
        char text[kMost] = "";
    };

    Loaded Load(UINT id) const {
        Loaded loaded;
        if (LoadStringA(context_.strings, id, loaded.text, sizeof loaded.text) == 0) {
            loaded.text[0] = '\0';
        }
        return loaded;
    }
    void Append(const char* words) {
        const std::size_t used = std::strlen(text_);
        CopyText(text_ + used, size_ - used, words);
    }

    const SheetContext& context_;
    char* text_;
    const std::size_t size_;
};

void AddPaperName(Sentence& sentence, const SheetContext& context, DWORD code, UINT frame) {
    PaperLabel paper = PaperLabelOf(context, code);
    for (std::size_t end = std::strlen(paper.name); end > 0 && paper.name[end - 1] == ' '; --end) {
        paper.name[end - 1] = '\0';
    }
    if (paper.name[0] == '\0') return;
    if (frame == 0) {
        sentence.Add(paper.name);
    } else {
        sentence.Add(frame, paper.name);
    }
}

// The bar along the binding edge, or the fold of a booklet, shows which side of the sheet it is. A
// landscape booklet is a portrait one turned by a quarter.
UINT BindingSide(const PaperSettings& settings) {
    constexpr WORD kUprightBars[] = {IDB_BAR_PORTRAIT_LEFT, IDB_BAR_LANDSCAPE_LEFT};
    const bool upright = settings.document == Shape::kPortrait;
    if (settings.duplexMode == kDuplexBookletLeft) {
        return upright ? IDS_WORDS_BOUND_LEFT : IDS_WORDS_BOUND_TOP;
    }
    if (settings.duplexMode == kDuplexBookletRight) {
        return upright ? IDS_WORDS_BOUND_RIGHT : IDS_WORDS_BOUND_BOTTOM;
    }
    const LayoutKind kind = LayoutOf(settings.nup).kind;
    const BindingRow* row = BindingOf(settings.duplexMode, kind, settings.document);
    if (row == nullptr) return 0;
    for (const WORD bar : kUprightBars) {
        if (row->bar == bar) return IDS_WORDS_BOUND_LEFT;
    }
    return IDS_WORDS_BOUND_TOP;
}

// What a control shows for a value, in a text with one %s.
void AddValue(Sentence& sentence, SheetContext& context, DWORD controlId, LONG value, UINT frame) {
    char name[kReportTextSize] = "", shown[kReportTextSize] = "";
    DescribeItemValue(context, controlId, value, value, name, shown);
    if (shown[0] != '\0') sentence.Add(frame, shown);
}

}  // namespace

void DescribePaper(SheetContext& context, char* text, std::size_t size) {
    const PaperSettings settings = PaperSettingsOf(context);
    Sentence sentence(context, text, size);
    AddPaperName(sentence, context, static_cast<WORD>(context.settings->dmPaperSize), 0);
    const DWORD output = context.privateSettings->mdmOutputPaper;
    if (output != 0) AddPaperName(sentence, context, output, IDS_WORDS_PRINTED_ON);
    if (IsBooklet(settings.nup)) {
        sentence.Add(IDS_WORDS_BOOKLET);
    } else if (const int sheets = PosterSheets(settings.nup)) {
        char poster[32];
        std::snprintf(poster, sizeof poster, "%d x %d", sheets, sheets);
        sentence.Add(IDS_WORDS_POSTER, poster);
    } else if (LayoutOf(settings.nup).nup == settings.nup && settings.nup > 1) {
        char pages[16];
        std::snprintf(pages, sizeof pages, "%u", static_cast<unsigned>(settings.nup));
        sentence.Add(IDS_WORDS_PAGES, pages);
    }
    sentence.Add(settings.document == Shape::kLandscape ? IDS_WORDS_LANDSCAPE : IDS_WORDS_PORTRAIT);
    if (const UINT side = BindingSide(settings)) {
        if (!IsBooklet(settings.nup)) sentence.Add(IDS_WORDS_TWO_SIDED);
        sentence.Add(side);
    }
    if ((settings.nupStyle & kNupBorder) != 0) sentence.Add(IDS_WORDS_BORDERS);
    if (settings.overlay != 0) sentence.Add(IDS_WORDS_OVERLAY);
    if (settings.watermark != 0) sentence.Add(IDS_WORDS_WATERMARK);
    sentence.Add(settings.colour ? IDS_WORDS_COLOUR : IDS_WORDS_GRAYSCALE);
}

void DescribeColourSample(SheetContext& context, char* text, std::size_t size) {
    const bool grey = context.shared->preview.sampleMode == kSampleMonochrome;
    Sentence sentence(context, text, size);
    sentence.Add(IDS_WORDS_SAMPLE);
    sentence.Add(grey ? IDS_WORDS_GRAYSCALE : IDS_WORDS_COLOUR);
}

void DescribeWatermark(SheetContext& context, char* text, std::size_t size) {
    const bool chosen = context.privateSettings->mdmWatermark != 0;
    Sentence(context, text, size).Add(chosen ? IDS_WORDS_WATERMARK : IDS_WORDS_NO_WATERMARK);
}

void DescribeWatermarkText(SheetContext& context, const char* words, char* text, std::size_t size) {
    Sentence sentence(context, text, size);
    sentence.Add(IDS_WORDS_WATERMARK);
    sentence.Add(words);
}

void DescribePrinter(SheetContext& context, char* text, std::size_t size) {
    Sentence sentence(context, text, size);
    sentence.Add(IDS_WORDS_PRINTER);
    const PrivateDevmode& settings = *context.privateSettings;
    const ControlItem* options = ItemById(IDC_LIST_INSTALLED);
    bool isFirst = true;
    for (const SelectItem& option : SelectEntries(*options)) {
        if ((settings.mdmInstalledOptions & option.value) == 0) continue;
        char label[64] = "";
        LoadStringA(context.strings, option.stringId, label, sizeof label);
        isFirst ? sentence.Add(IDS_WORDS_WITH, label) : sentence.Add(label);
        isFirst = false;
    }
    AddValue(sentence, context, IDC_COMBO_PAPER_SOURCE,
             static_cast<LONG>(context.settings->dmDefaultSource), IDS_WORDS_PAPER_FROM);
    AddValue(sentence, context, IDC_COMBO_OUTPUT_SETTING, static_cast<LONG>(settings.mdmOutBin),
             IDS_WORDS_OUTPUT_TO);
}

}  // namespace kvui
