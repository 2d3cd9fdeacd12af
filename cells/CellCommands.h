// The commands of rows, cells and columns, by the ids of the panel's command table.
#pragma once

namespace productTree::commands {

inline constexpr int removeProductPart = 7746;
inline constexpr int highlight = 7752;
inline constexpr int insertHypertext = 7753;
inline constexpr int destroyHypertext = 7754;
inline constexpr int editHypertext = 7755;
inline constexpr int convertToBillet = 7757;
inline constexpr int itemProperties = 7758;
inline constexpr int recalcValue = 7759;
inline constexpr int editRoughSign = 7761;
inline constexpr int referenceBook = 7762;
inline constexpr int gotoFeature = 7763;
inline constexpr int addBillet = 7764;
inline constexpr int transmitToSource = 7765;
inline constexpr int calculatePositions = 7766;
inline constexpr int takeMaterialAway = 7767;
inline constexpr int chooseMaterial = 7768;
inline constexpr int insertExtendedReference = 7787;
inline constexpr int setBySource = 7789;
inline constexpr int hideColumn = 7790;
inline constexpr int aggrIntoProductOn = 7791;
inline constexpr int aggrIntoProductOff = 7792;
inline constexpr int inCurDescrOn = 7793;
inline constexpr int inCurDescrOff = 7794;
inline constexpr int manageProperties = 7795;
inline constexpr int editComponentSource = 7020;
inline constexpr int editFragmentSource = 5707;

} // namespace productTree::commands
