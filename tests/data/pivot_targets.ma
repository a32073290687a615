//Maya ASCII 2022 scene
//Name: pivot_targets.ma
//Codeset: UTF-8
requires maya "2022";
currentUnit -l centimeter -a degree -t film;
fileInfo "application" "maya";
createNode transform -n "grpA";
createNode transform -n "ball" -p "grpA";
createNode transform -n "grpB";
createNode transform -n "ball" -p "grpB";
createNode transform -n "rig:arm";
// End of pivot_targets.ma
