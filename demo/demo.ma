//Maya ASCII 2022 scene
//Name: demo.ma
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
fileInfo "product" "Maya 2022";
createNode transform -n "root_ctrl";
	rename -uid "6B1F0C8E-4A2B-4C11-9E3A-000000000001";
	setAttr ".t" -type "double3" 0 10 0 ;
	setAttr ".r" -type "double3" 0 45 0 ;
createNode transform -n "arm_ctrl" -p "root_ctrl";
	rename -uid "6B1F0C8E-4A2B-4C11-9E3A-000000000002";
	setAttr ".t" -type "double3" 5 0 0 ;
	setAttr ".r" -type "double3" 0 0 30 ;
	setAttr ".ro" 3;
	setAttr ".rp" -type "double3" 1 0 0 ;
	setAttr ".sp" -type "double3" 1 0 0 ;
createNode joint -n "hand_jnt" -p "arm_ctrl";
	rename -uid "6B1F0C8E-4A2B-4C11-9E3A-000000000003";
	setAttr ".t" -type "double3" 4 0 0 ;
	setAttr ".jo" -type "double3" 0 0 -15 ;
createNode locator -n "hand_jntShape" -p "hand_jnt";
	rename -uid "6B1F0C8E-4A2B-4C11-9E3A-000000000004";
