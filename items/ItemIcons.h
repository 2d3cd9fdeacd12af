// Icons of rows: icon resources of the host by kind of object, by section, and for groups by the
// icon that their members share.
#pragma once

namespace productTree {

/// `type` is that of IfProductTreeData::GetIconType; one outside the table has the icon of type 26.
int GetObjectIcon(int type);

/// `number` is the first number of the section.
int GetSectionIcon(int number);

/// Sections without icons of their own, and groups of different objects.
inline constexpr int c_commonIcon = 63242;

/// Members of either icon count as alike.
int GetMemberIcon(int icon);

/// The group form of a member's icon; the common icon for one without.
int GetGroupIcon(int memberIcon);

} // namespace productTree
