   N00 G21 X      Z       F    
   N01 G22 X      Z       F    
   M
