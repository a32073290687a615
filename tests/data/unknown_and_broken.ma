//Maya ASCII 2022 scene
//Name: unknown_and_broken.ma
requires maya "2022";
createNode transform -n "first";
	setAttr ".tx" 1;
createNode studioRigHelper -n "mystery";
	setAttr ".weight" 3.5;
	setAttr ".label" -type "string" "kept";
createNode transform -n "second";
	setAttr ".noSuchAttribute" 2;
	setAttr ".ty" 2;
createNode studioRigHelper -n "mystery2";
createNode transform -n "third" -p "second";
	setAttr ".tz" 3;
// End of unknown_and_broken.ma
