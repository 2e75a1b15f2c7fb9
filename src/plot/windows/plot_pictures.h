#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "platform/surface.h"

namespace halvorne {

/// The kinds of picture file, by the ending of their name.
enum class PictureFormat { kPng, kSvg, kPdf };

/// The format that a file's name asks for by its ending; none for an ending of no picture.
std::optional<PictureFormat> PictureFormatOf(const std::string& fileName);

/// Draws on the surface of a main picture.
using Drawing = std::function<void(Surface&)>;

/// A drawing as the bytes of a picture file. Raises 7 where there is no memory for an image.
/// @param size   in pixels of 1/96 inch
/// @param title  what the file says of itself, where its format has a place for it
QByteArray PictureOf(PictureFormat format, QSize size, const QString& title, const Drawing& draw);

/// Draws over all of an image.
void DrawOnImage(QImage& image, const Drawing& draw);

/// An image as the bytes of a PNG file. Raises 5 where it cannot be encoded.
QByteArray PngOf(const QImage& image);

}  // namespace halvorne
