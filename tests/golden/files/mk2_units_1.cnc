%
   N00 G22 X      Z       F    
   m
   N01 G00 X     Z       F    
