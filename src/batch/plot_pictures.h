#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <string>

namespace halvorne::batch {

/// The kinds of picture file, by the ending of their name.
enum class PictureFormat { kPng, kSvg, kPdf };

/// The format of a file's name; PNG for standard output, an empty name. Raises WrongCommandLine
/// for any other ending.
PictureFormat PictureFormatOf(const std::string& fileName);

/// The plot on show as the main window shows it, as the bytes of a file.
/// @param size  in pixels of 1/96 inch; a default when it is not valid
QByteArray PlotPicture(PictureFormat format, QSize size);

/// The stack of the design as the main window shows it, as the bytes of a file.
/// @param size  as above
QByteArray StackPicture(PictureFormat format, QSize size);

/// The plot on show over all of an image.
void DrawPlot(QImage& image);

/// An image as the bytes of a PNG file.
QByteArray PngOf(const QImage& image);

}  // namespace halvorne::batch
