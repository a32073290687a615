//Maya ASCII 2022 scene
//Name: tangent_curves.ma
//Codeset: UTF-8
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
createNode transform -n "ball";
createNode animCurveTL -n "ball_translateX";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 5 ".ktv[0:4]"  1 0 5 10 10 4 15 20 20 20;
	setAttr -s 5 ".kit[0:4]"  9 9 9 9 9;
	setAttr -s 5 ".kot[0:4]"  9 9 9 9 9;
	setAttr -s 5 ".ktl[0:4]" yes yes yes no yes;
createNode animCurveTL -n "ball_translateY";
	setAttr ".tan" 9;
	setAttr ".wgt" yes;
	setAttr -s 4 ".ktv[0:3]"  1 0 8 12 14 3 20 6;
	setAttr -s 4 ".kit[0:3]"  9 9 9 9;
	setAttr -s 4 ".kot[0:3]"  9 9 9 9;
createNode animCurveTU -n "ball_scaleX";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr ".ktv[0]"  5 2;
connectAttr "ball_translateX.o" "ball.tx";
connectAttr "ball_translateY.o" "ball.ty";
connectAttr "ball_scaleX.o" "ball.sx";
// End of tangent_curves.ma
