//Maya ASCII 2022 scene
//Name: pivoted_hierarchy.ma
//Codeset: UTF-8
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -n "base";
	rename -uid "0D4C5E6F-1A2B-4C3D-8E9F-00000000B001";
	setAttr ".t" -type "double3" 0 10 0 ;
	setAttr ".r" -type "double3" 0 45 0 ;
createNode transform -n "arm" -p "base";
	rename -uid "0D4C5E6F-1A2B-4C3D-8E9F-00000000B002";
	setAttr ".t" -type "double3" 5 0 0 ;
	setAttr ".r" -type "double3" 0 0 90 ;
	setAttr ".rp" -type "double3" 1 0 0 ;
	setAttr ".sp" -type "double3" 1 0 0 ;
createNode transform -n "hand" -p "arm";
	rename -uid "0D4C5E6F-1A2B-4C3D-8E9F-00000000B003";
	setAttr ".t" -type "double3" 2 0 0 ;
// End of pivoted_hierarchy.ma
