#include "Platform/Interface/Contrast.h"

#include <QtGui/QPalette>
#include <cmath>

namespace {

constexpr float OutlineOpacity = 0.4F;
constexpr int LightnessStep = 103;
constexpr int MostSteps = 255;

double luminance(const QColor &color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

void makeDisabledTextLegible(QPalette &palette, QPalette::ColorRole text,
                             QPalette::ColorRole ground) {
    const QColor under = palette.color(QPalette::Disabled, ground);
    const QColor disabled = palette.color(QPalette::Disabled, text);
    if (Contrast::ratio(Contrast::blended(disabled, under), under) < Contrast::OfText) {
        QColor color = palette.color(QPalette::Active, text);
        color.setAlpha(0);
        palette.setColor(
            QPalette::Disabled, text,
            Contrast::blended(Contrast::legible(color, under, Contrast::OfText), under));
    }
}

/// Returns `color`, lighter or darker until it has the contrast `minimum` to `other`, or black or
/// white if even that is not enough.
QColor apart(QColor color, const QColor &other, bool becomesLighter, double minimum) {
    for (int step = 0; step < MostSteps && Contrast::ratio(color, other) < minimum; ++step) {
        color = becomesLighter ? color.lighter(LightnessStep) : color.darker(LightnessStep);
    }
    return color;
}

}  // namespace

double Contrast::ratio(const QColor &one, const QColor &other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return qMax(first, second) / qMin(first, second);
}

QColor Contrast::blended(const QColor &color, const QColor &ground) {
    const double alpha = color.alphaF();
    const auto mixed = [=](int over, int under) {
        return qRound(over * alpha + under * (1 - alpha));
    };
    return {mixed(color.red(), ground.red()), mixed(color.green(), ground.green()),
            mixed(color.blue(), ground.blue())};
}

QColor Contrast::legible(const QColor &color, const QColor &ground, double minimum) {
    QColor result = color;
    while (result.alpha() < 255 && ratio(blended(result, ground), ground) < minimum) {
        result.setAlpha(result.alpha() + 1);
    }
    return result;
}

QColor Contrast::outline(const QPalette &palette) {
    const QColor ground = palette.color(QPalette::Window);
    QColor line = palette.color(QPalette::WindowText);
    line.setAlphaF(OutlineOpacity);
    // Outlines are smoothed, which takes some of their contrast.
    return blended(legible(line, ground, OfOutline + 0.5), ground);
}

QColor Contrast::focus(const QPalette &palette) {
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    return apart(palette.color(QPalette::Active, QPalette::Highlight), window,
                 luminance(text) > luminance(window), OfOutline);
}

QPalette Contrast::withLegibleTexts(const QPalette &palette) {
    QPalette result = palette;
    const QColor text = palette.color(QPalette::HighlightedText);
    const QColor highlight = palette.color(QPalette::Highlight);
    const QColor selection = apart(highlight, text, luminance(text) < luminance(highlight), OfText);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor base = palette.color(group, QPalette::Base);
        result.setColor(group, QPalette::Highlight, selection);
        result.setColor(group, QPalette::HighlightedText, text);
        result.setColor(group, QPalette::PlaceholderText,
                        legible(palette.color(group, QPalette::PlaceholderText), base));
    }
    makeDisabledTextLegible(result, QPalette::WindowText, QPalette::Window);
    makeDisabledTextLegible(result, QPalette::Text, QPalette::Base);
    makeDisabledTextLegible(result, QPalette::PlaceholderText, QPalette::Base);
    makeDisabledTextLegible(result, QPalette::ButtonText, QPalette::Button);
    return result;
}
