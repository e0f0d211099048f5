%
   N00 G22 X      Z       F    
   "
   N01 G00 X     Z       F    
