//Maya ASCII 2022 scene
//Name: mirror_rig.ma
//Codeset: UTF-8
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
createNode transform -n "body_ctrl";
createNode transform -n "hand_L_ctrl";
	addAttr -ci true -sn "space" -ln "space" -min 0 -max 2 -en "world:body:hand" -at "enum" -k true;
	addAttr -ci true -sn "ikfk" -ln "ikfk" -at "bool" -k true;
	addAttr -ci true -sn "count" -ln "count" -at "long" -k true;
	addAttr -ci true -sn "rotateBend" -ln "rotateBend" -at "double" -k true;
	setAttr ".t" -type "double3" 4 0 0 ;
createNode transform -n "hand_R_ctrl";
	addAttr -ci true -sn "space" -ln "space" -min 0 -max 2 -en "world:body:hand" -at "enum" -k true;
	addAttr -ci true -sn "ikfk" -ln "ikfk" -at "bool" -k true;
	addAttr -ci true -sn "count" -ln "count" -at "long" -k true;
	addAttr -ci true -sn "rotateBend" -ln "rotateBend" -at "double" -k true;
	setAttr ".t" -type "double3" -4 0 0 ;
createNode transform -n "wing_L_ctrl";
	setAttr ".t" -type "double3" 3 5 0 ;
createNode transform -n "R_wing_grp";
	setAttr ".s" -type "double3" -1 1 1 ;
createNode transform -n "wing_R_ctrl" -p "R_wing_grp";
	setAttr ".t" -type "double3" 3 5 0 ;
createNode transform -n "foot_L_ctrl";
	setAttr ".t" -type "double3" 1 0 0 ;
createNode transform -n "foot_R_ctrl";
	setAttr ".t" -type "double3" -1 0 0 ;
	setAttr ".ra" -type "double3" 0 90 0 ;
createNode joint -n "chest_jnt";
createNode joint -n "shoulder_L_jnt" -p "chest_jnt";
	setAttr ".t" -type "double3" 2 0 0 ;
createNode joint -n "elbow_L_jnt" -p "shoulder_L_jnt";
	setAttr ".t" -type "double3" 3 0 0 ;
createNode joint -n "shoulder_R_jnt" -p "chest_jnt";
	setAttr ".t" -type "double3" -2 0 0 ;
	setAttr ".jo" -type "double3" 180 0 0 ;
createNode joint -n "elbow_R_jnt" -p "shoulder_R_jnt";
	setAttr ".t" -type "double3" -3 0 0 ;
