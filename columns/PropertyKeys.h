// The paths of the properties that the panel knows; a path is a column id. They are those of
// ProductProperties; keys without a behaviour of their own reach the panel as ordinary columns.
#pragma once

#include <string>

namespace productTree::keys {

inline const std::wstring name = L"name";
inline const std::wstring mass = L"mass";
inline const std::wstring note = L"note";
inline const std::wstring zone = L"zone";
inline const std::wstring marking = L"marking";
inline const std::wstring documentNumber = L"documentNumber";
inline const std::wstring markingBase = marking + L".base";
inline const std::wstring markingEmbodimentNumber = marking + L".embodimentNumber";
inline const std::wstring markingAdditionalNumber = marking + L".additionalNumber";
inline const std::wstring markingDocumentNumber = marking + L"." + documentNumber;
inline const std::wstring variantName = L"variantName";
inline const std::wstring productName = L"productName";
inline const std::wstring count = L"count";
inline const std::wstring material = L"material";
inline const std::wstring density = L"density";
inline const std::wstring comment = L"comment";
inline const std::wstring featureType = L"featureType";
inline const std::wstring fromExternalLibrary = L"fromExternalLibrary";
inline const std::wstring position = L"position";
inline const std::wstring SPCSection = L"SPCSection";
inline const std::wstring accuracyClass = L"accuracyClass";
inline const std::wstring SPCSectionSubSectionNumb = SPCSection + L".subSectionNumb";
inline const std::wstring structureNumber = L"structureNumber";
inline const std::wstring number = L"number";
inline const std::wstring additionNumber = L"additionNumber";
inline const std::wstring arrayElement = L"arrayElement";
inline const std::wstring specRoughSign = L"specRoughSign";
inline const std::wstring specRoughValue = L"specRoughValue";
inline const std::wstring color = L"color";
inline const std::wstring priority = L"priority";
inline const std::wstring advancedColor = L"advancedColor";
inline const std::wstring ambient = L"ambient";
inline const std::wstring diffuse = L"diffuse";
inline const std::wstring specularity = L"specularity";
inline const std::wstring shininess = L"shininess";
inline const std::wstring transparency = L"transparency";
inline const std::wstring emission = L"emission";
inline const std::wstring sourceColor = L"sourceColor";
inline const std::wstring variantUseCaseColor = L"variantUseCaseColor";
inline const std::wstring hatchGroup = L"hatchGroup";
inline const std::wstring hatchStyle = L"hatchStyle";
inline const std::wstring angle = L"angle";
inline const std::wstring notSected = L"notSected";
inline const std::wstring hatchColor = L"hatchColor";
inline const std::wstring hatchAngle = L"hatchAngle";
inline const std::wstring zoneCount = L"zoneCount";
inline const std::wstring spcObjNumber = L"spcObjNumber";
inline const std::wstring materialHatch = L"materialHatch";
inline const std::wstring additionColumn = L"additionColumn";
/// Begins with the Cyrillic letter es.
inline const std::wstring cyrillicColumn = L"\u0441olumn";
inline const std::wstring revisionLetter = L"revisionLetter";
inline const std::wstring jobDescription = L"jobDescription";
inline const std::wstring signer = L"signer";
inline const std::wstring sheetsNumber = L"sheetsNumber";
inline const std::wstring productCode = L"productCode";
inline const std::wstring author = L"author";
inline const std::wstring organization = L"organization";
inline const std::wstring fullFileName = L"fullFileName";
inline const std::wstring fileName = L"fileName";
inline const std::wstring isPhantom = L"isPhantom";
inline const std::wstring billets = L"billets";
inline const std::wstring stampAuthor = L"stampAuthor";
inline const std::wstring checkedBy = L"checkedBy";
inline const std::wstring approvedBy = L"approvedBy";
inline const std::wstring mfgApprovedBy = L"mfgApprovedBy";
inline const std::wstring rateOfInspection = L"rateOfInspection";
inline const std::wstring format = L"format";
inline const std::wstring materials = L"materials";
inline const std::wstring location = L"location";

inline const std::wstring materialDensity = material + L"." + density;
inline const std::wstring materialName = material + L"." + name;

} // namespace productTree::keys
