#include "KRNStageRoutines.h"

#include <algorithm>
#include <cmath>

namespace KRNStages {

Points Read(const CKRNMachineData& record, KRNMACHINEITEM profile) {
    Points points(static_cast<std::size_t>(std::max(0, record.GetProfileDataCount(profile))));
    for (std::size_t i = 0; i < points.size(); ++i)
        record.GetProfileData(profile, static_cast<int>(i), points[i].x, points[i].y);
    return points;
}

void Write(CKRNMachineData& record, KRNMACHINEITEM profile, const Points& points) {
    // Removing from the end keeps this linear for long profiles.
    for (int n = record.GetProfileDataCount(profile); n > static_cast<int>(points.size()); --n)
        record.RemoveProfileData(profile, n - 1);
    for (std::size_t i = 0; i < points.size(); ++i)
        record.SetMachineData(profile, static_cast<int>(i), points[i].x, points[i].y);
}

void EndFlat(Points& points) {
    const std::size_t n = points.size();
    if (n >= 2 && points[n - 1].y != points[n - 2].y) points[n - 1].y = points[n - 2].y;
}

void HalveFullStrokeStage(Points& points) {
    const std::size_t n = points.size();
    if (n >= 2 && points[n - 2].x == 100.0) points[n - 2].x = 50.0;
}

void TailRule(Points& points) {
    HalveFullStrokeStage(points);
    EndFlat(points);
}

void HoldTail(Points& points) {
    const std::size_t n = points.size();
    if (n < 2) return;
    const double y = points[n - 2].x == 100.0 ? points[n - 2].y : 0.0;
    if (points[n - 1].y != y) points[n - 1].y = y;
}

void HalveOrDropTail(Points& points) {
    HoldTail(points);  // looks at the full stroke before it is halved
    HalveFullStrokeStage(points);
}

namespace {
// Applies a tail rule to the last two points of a record's profile only.
template <class Rule>
void OnTail(CKRNMachineData& record, KRNMACHINEITEM profile, Rule rule) {
    const int n = record.GetProfileDataCount(profile);
    if (n < 2) return;
    Points tail(2);
    record.GetProfileData(profile, n - 2, tail[0].x, tail[0].y);
    record.GetProfileData(profile, n - 1, tail[1].x, tail[1].y);
    rule(tail);
    record.SetMachineData(profile, n - 2, tail[0].x, tail[0].y);
    record.SetMachineData(profile, n - 1, tail[1].x, tail[1].y);
}
}  // namespace

void EndFlat(CKRNMachineData& record, KRNMACHINEITEM profile) { OnTail(record, profile, [](Points& p) { EndFlat(p); }); }
void TailRule(CKRNMachineData& record, KRNMACHINEITEM profile) { OnTail(record, profile, [](Points& p) { TailRule(p); }); }
void HoldTail(CKRNMachineData& record, KRNMACHINEITEM profile) { OnTail(record, profile, [](Points& p) { HoldTail(p); }); }
void HalveOrDropTail(CKRNMachineData& record, KRNMACHINEITEM profile) {
    OnTail(record, profile, [](Points& p) { HalveOrDropTail(p); });
}

namespace {
// Inserts points before the last one and applies the tail rule; profiles of
// fewer than two points have no stage to extend and stay as they are.
template <class MakePoint>
void Extend(CKRNMachineData& record, KRNMACHINEITEM profile, int targetPoints, MakePoint make) {
    Points points = Read(record, profile);
    if (points.size() < 2 || targetPoints <= static_cast<int>(points.size())) return;
    const XYProfile last = points.back();
    points.pop_back();
    const XYProfile added = make(points);
    points.resize(static_cast<std::size_t>(targetPoints - 1), added);
    points.push_back(last);
    TailRule(points);
    Write(record, profile, points);
}
}  // namespace

void Pad(CKRNMachineData& record, KRNMACHINEITEM profile, int count) {
    if (count <= 0) return;
    Extend(record, profile, record.GetProfileDataCount(profile) + count, [](const Points&) { return XYProfile{}; });
}

void PadTo(CKRNMachineData& record, KRNMACHINEITEM profile, int points) {
    const int n = record.GetProfileDataCount(profile);
    if (n < points) Pad(record, profile, points - n);
}

void Grow(CKRNMachineData& record, KRNMACHINEITEM profile, int points) {
    Extend(record, profile, points, [](const Points& p) { return p.back(); });
}

void Shrink(CKRNMachineData& record, KRNMACHINEITEM profile, int points) {
    Points p = Read(record, profile);
    if (p.size() < 2) return;
    const std::size_t wanted = static_cast<std::size_t>(std::max(points, 1));
    while (p.size() > wanted && p.size() >= 2) p.erase(p.end() - 2);
    Write(record, profile, p);
}

void SetStageCount(CKRNMachineData& record, KRNMACHINEITEM profile, int stages) {
    if (stages < 0) return;
    // A profile of one point has no stage left to grow from.
    const int wanted = std::max(stages, 1) + 1;
    const int n = record.GetProfileDataCount(profile);
    if (wanted > n) Grow(record, profile, wanted);
    else if (wanted < n) Shrink(record, profile, wanted);
}

void Tidy(CKRNMachineData& record, KRNMACHINEITEM profile, LoneEnd lone) {
    Points p = Read(record, profile);
    if (p.empty()) return;
    for (std::size_t i = p.size() - 1; i-- > 0;)
        if (p[i].x == 0.0) p.erase(p.begin() + static_cast<std::ptrdiff_t>(i));
    if (p.size() >= 2)
        p.back() = {0.0, p[p.size() - 2].y};
    else if (lone == LoneEnd::ToZero)
        p.back() = {0.0, 0.0};
    Write(record, profile, p);
}

namespace {
// The first point of a profile with a position and no level; -1 when there is none.
int SwitchOverPoint(const CKRNMachineData& record, KRNMACHINEITEM profile) {
    for (int i = 0; i < record.GetProfileDataCount(profile); ++i) {
        double x = 0, y = 0;
        record.GetProfileData(profile, i, x, y);
        if (x != 0.0 && y == 0.0) return i;
    }
    return -1;
}
}  // namespace

void TidyWithSwitchOver(CKRNMachineData& record) {
    if (const int i = SwitchOverPoint(record, MI_FP_PROFILE); i >= 0) {
        double x = 0, y = 0;
        record.GetProfileData(MI_FP_PROFILE, i, x, y);
        double stroke = 0;
        record.GetMachineData(MI_MAX_RAM_POSITION, stroke);
        record.SetMachineData(MI_VP_RAM_POSITION, x / 100.0 * stroke);
        record.SetMachineData(MI_FP_PROFILE, i, 0.0, y);
    }
    if (const int i = SwitchOverPoint(record, MI_P_PROFILE); i >= 0) record.SetMachineData(MI_P_PROFILE, i, 0.0, 0.0);
    for (KRNMACHINEITEM profile : {MI_FP_PROFILE, MI_P_PROFILE, MI_PP_PROFILE})
        Tidy(record, profile, LoneEnd::ToZero);
}

void ToPageForm(CKRNMachineData& record, KRNMACHINEITEM profile, KRNMACHINEITEM timeItem) {
    double total = 0.0;
    record.GetMachineData(timeItem, total);
    Points r = Read(record, profile);
    std::reverse(r.begin(), r.end());  // from the end of the time (x = 0) up
    Points page(r.size());
    for (std::size_t i = 0; i + 1 < r.size(); ++i) {
        const double duration = std::fabs(r[i + 1].x - r[i].x) * total * 0.01;
        if (duration != 0.0) page[i] = {duration, r[i + 1].y};
    }
    // Empty stages at the front move to the end.
    std::size_t empty = 0;
    while (empty < page.size() && page[empty].x == 0.0 && page[empty].y == 0.0) ++empty;
    if (empty < page.size()) std::rotate(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(empty), page.end());
    Write(record, profile, page);
}

void ToRecordForm(CKRNMachineData& record, KRNMACHINEITEM profile, KRNMACHINEITEM timeItem) {
    Points p = Read(record, profile);
    if (p.empty()) return;
    for (std::size_t i = p.size() - 1; i-- > 0;)
        if (p[i].x == 0.0) p.erase(p.begin() + static_cast<std::ptrdiff_t>(i));

    const std::size_t stages = p.size() - 1;
    double total = 0.0;
    for (std::size_t k = 0; k < stages; ++k) total += p[k].x;
    // Durations that cancel out or overflow leave no time to share: every stage
    // then ends at 0 rather than at a value that is no number.
    const bool shareable = total != 0.0 && std::isfinite(total);

    Points out;
    out.reserve(p.size());
    std::vector<double> ends(stages);
    double running = 0.0;
    for (std::size_t k = 0; k < stages; ++k) {
        running += shareable ? p[k].x / total * 100.0 : 0.0;
        ends[k] = running;
    }
    for (std::size_t k = stages; k-- > 0;) out.push_back({ends[k], p[k].y});
    out.push_back({0.0, p[0].y});
    if (std::isfinite(total)) record.SetMachineData(timeItem, total);
    Write(record, profile, out);
}

Points Accumulate(const Points& points) {
    double total = 0.0;
    for (const XYProfile& p : points) total += p.x;
    if (points.empty() || total == 0.0 || !std::isfinite(total)) return {};
    Points out{{0.0, points.front().y}};
    double running = 0.0;
    for (const XYProfile& p : points) {
        running += p.x;
        out.push_back({running / total * 100.0, p.y});
    }
    return out;
}

}  // namespace KRNStages
