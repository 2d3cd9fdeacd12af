// The drawings that icons are put together from: flat shapes on a grid of 16 by 16, one function a
// kind of object.
#pragma once

#include <QIcon>

#include <functional>

class QPainter;

namespace desktop::glyphs {

inline constexpr double c_grid = 16;

/// The painter is scaled to the grid, and antialiasing is on.
using Draw = void (*)(QPainter& painter);

/// An icon in all the sizes that the program uses.
QIcon MakeIcon(const std::function<void(QPainter&)>& draw);

void Nothing(QPainter& painter);
void Folder(QPainter& painter);

void Part(QPainter& painter);
void Assembly(QPainter& painter);
void Complex(QPainter& painter);
void Phantom(QPainter& painter);
void EmbodiedPart(QPainter& painter);
void EmbodiedAssembly(QPainter& painter);
void StandardPart(QPainter& painter);
void CataloguePart(QPainter& painter);
void Billet(QPainter& painter);
void Material(QPainter& painter);
void Kit(QPainter& painter);
void Library(QPainter& painter);
void Other(QPainter& painter);

void Sheet(QPainter& painter);
void Drawing(QPainter& painter);
void PartsList(QPainter& painter);
void Report(QPainter& painter);

/// A document that a part has, and what it takes over from it: the sheet's format, name and
/// designation, or both.
void Document(QPainter& painter);
void FormatDocument(QPainter& painter);
void NameDocument(QPainter& painter);
void SourceDocument(QPainter& painter);

void Profile(QPainter& painter);
void Circle(QPainter& painter);
void Text(QPainter& painter);
void Hatch(QPainter& painter);
void Axis(QPainter& painter);
void Dimension(QPainter& painter);

/// Two links that hold each other, that are apart, and of which one has come loose.
void ClosedChain(QPainter& painter);
void BrokenChain(QPainter& painter);
void HalfChain(QPainter& painter);
/// Something can be typed here.
void Pencil(QPainter& painter);
/// A date can be chosen here.
void Calendar(QPainter& painter);
/// A list opens here.
void Down(QPainter& painter);

} // namespace desktop::glyphs
