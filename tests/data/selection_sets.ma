//Maya ASCII 2022 scene
//Name: selection_sets.ma
//Codeset: UTF-8
requires maya "2022";
requires -nodeType "OVSelectionSetNode" "orvane" "1.2.2";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -n "hand_L_ctrl";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000001";
createNode nurbsCurve -n "hand_L_ctrlShape" -p "hand_L_ctrl";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000002";
createNode transform -n "hand_R_ctrl";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000003";
createNode nurbsCurve -n "hand_R_ctrlShape" -p "hand_R_ctrl";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000004";
createNode transform -n "spine_ctrl";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000005";
createNode nurbsCurve -n "spine_ctrlShape" -p "spine_ctrl";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000006";
createNode transform -n "face";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000007";
createNode mesh -n "faceShape" -p "face";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000008";
createNode OVSelectionSetNode -n "x1E0x1Ehands";
	rename -uid "5E1EC7A0-0000-4000-8000-000000000009";
	setAttr ".c" -type "string" "hand_L_ctrl hand_R_ctrl ";
	setAttr ".ci" 4;
createNode OVSelectionSetNode -n "x1E1x1Espine";
	rename -uid "5E1EC7A0-0000-4000-8000-00000000000A";
	setAttr ".c" -type "string" "spine_ctrl ";
	setAttr ".ci" 12;
createNode OVSelectionSetNode -n "x1E2x1Eface";
	rename -uid "5E1EC7A0-0000-4000-8000-00000000000B";
	setAttr ".c" -type "string" "face.f[0:3] ";
	setAttr ".ci" 40;
// End of selection_sets.ma
