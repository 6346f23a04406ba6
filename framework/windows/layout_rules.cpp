#include "framework/windows/layout_rules.h"

#include <algorithm>
#include <vector>

namespace framework {

namespace {

struct TSpan {
    std::int32_t Low;
    std::int32_t High;
};

TSpan AnchoredSpan(TSpan place, bool low, bool high, int oldExtent, int newExtent) {
    const int growth = newExtent - oldExtent;
    if (low && high)
        return {place.Low, std::max(place.High + growth, place.Low)};
    if (high)
        return {place.Low + growth, place.High + growth};
    if (low || oldExtent <= 0)
        return place;
    const std::int64_t twiceCentre = std::int64_t{place.Low} + place.High;
    const auto shift = static_cast<std::int32_t>((twiceCentre * newExtent / oldExtent - twiceCentre) / 2);
    return {place.Low + shift, place.High + shift};
}

/// How far a child lies from the side it keeps to.
int DistanceToSide(const TAlignedChild& child) {
    switch (child.Align) {
    case alTop:
        return child.Place.Top;
    case alBottom:
        return -child.Place.Bottom;
    case alLeft:
        return child.Place.Left;
    case alRight:
        return -child.Place.Right;
    default:
        return 0;
    }
}

void PlaceAtSide(TAlignedChild& child, TRect& rest) {
    const int width = child.Place.Width();
    const int height = child.Place.Height();
    switch (child.Align) {
    case alTop:
        child.Place = {rest.Left, rest.Top, rest.Right, rest.Top + height};
        rest.Top += height;
        break;
    case alBottom:
        child.Place = {rest.Left, rest.Bottom - height, rest.Right, rest.Bottom};
        rest.Bottom -= height;
        break;
    case alLeft:
        child.Place = {rest.Left, rest.Top, rest.Left + width, rest.Bottom};
        rest.Left += width;
        break;
    case alRight:
        child.Place = {rest.Right - width, rest.Top, rest.Right, rest.Bottom};
        rest.Right -= width;
        break;
    case alClient:
        child.Place = rest;
        break;
    default:
        break;
    }
    child.Place.Right = std::max(child.Place.Right, child.Place.Left);
    child.Place.Bottom = std::max(child.Place.Bottom, child.Place.Top);
}

} // namespace

TRect AnchoredPlace(const TAnchorBase& base, TAnchors anchors, TSize parent) {
    const TSpan across = AnchoredSpan({base.Place.Left, base.Place.Right}, anchors.Contains(akLeft),
                                      anchors.Contains(akRight), base.Parent.Width, parent.Width);
    const TSpan down = AnchoredSpan({base.Place.Top, base.Place.Bottom}, anchors.Contains(akTop),
                                    anchors.Contains(akBottom), base.Parent.Height, parent.Height);
    return {across.Low, down.Low, across.High, down.High};
}

int ConstrainedExtent(int extent, int minimum, int maximum) {
    if (maximum > 0)
        extent = std::min(extent, maximum);
    return std::max(extent, minimum);
}

TRect AlignChildren(TRect client, std::span<TAlignedChild> children) {
    std::vector<TAlignedChild*> side;
    for (TAlign align : {alTop, alBottom, alLeft, alRight, alClient}) {
        side.clear();
        for (TAlignedChild& child : children) {
            if (child.Align == align)
                side.push_back(&child);
        }
        std::stable_sort(side.begin(), side.end(), [](const TAlignedChild* left, const TAlignedChild* right) {
            return DistanceToSide(*left) < DistanceToSide(*right);
        });
        for (TAlignedChild* child : side)
            PlaceAtSide(*child, client);
    }
    return client;
}

} // namespace framework
