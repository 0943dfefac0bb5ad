// The row loops for every processor, and the choice between them and the ones for wider registers.
#include <platform/gdi/row_loops.h>

#include <array>

namespace kv {
namespace {

using OperationIndex = std::array<RowsOperation, 256>;

OperationIndex IndexByCode(const FastRows* rows) {
    OperationIndex index{};
    for (; rows->run != nullptr; ++rows) index[rows->code] = rows->run;
    return index;
}

const RowLoops& Chosen() {
    static const RowLoops& loops = WideLoops() != nullptr ? *WideLoops() : PlainLoops();
    return loops;
}

}  // namespace

const RowLoops& PlainLoops() {
    return kLoops;
}

void CombineRows(RopCode code, const PixelRows& rows) {
    static const OperationIndex byCode = IndexByCode(Chosen().operations);
    if (byCode[code] != nullptr) {
        byCode[code](rows);
    } else {
        CombineRowsGeneral(code, rows);
    }
}

void BlendCoverage(const CoverageRows& rows, std::uint32_t pixel) {
    Chosen().blendCoverage(rows, pixel);
}

void BlendAlphaRow(std::uint32_t* target, const std::uint32_t* source, std::size_t count) {
    Chosen().blendAlpha(target, source, count);
}

}  // namespace kv
