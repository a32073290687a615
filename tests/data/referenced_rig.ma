//Maya ASCII 2022 scene
//Name: referenced_rig.ma
//Codeset: UTF-8
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -n "rig_grp";
	rename -uid "0D4C5E6F-1A2B-4C3D-8E9F-00000000C001";
createNode transform -n "ctrl" -p "rig_grp";
	rename -uid "0D4C5E6F-1A2B-4C3D-8E9F-00000000C002";
	addAttr -ci true -sn "blend" -ln "blend" -at "double" -min 0 -max 1 -k true;
	setAttr ".t" -type "double3" 0 1 0 ;
	setAttr -l on ".sx";
	setAttr -l on ".sy";
	setAttr -l on ".sz";
createNode locator -n "ctrlShape" -p "ctrl";
	rename -uid "0D4C5E6F-1A2B-4C3D-8E9F-00000000C003";
// End of referenced_rig.ma
