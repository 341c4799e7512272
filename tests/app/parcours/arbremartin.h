#pragma once

/// A tree file of one person, as the program reads it.
inline constexpr auto arbreMartin = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xrlg>
<xrlg version="1.0">
  <arbre>
    <infoarbre><titrearbre>Ancien titre</titrearbre></infoarbre>
    <nombrepersonnes>0</nombrepersonnes>
    <personne>
      <numero>1</numero><numerogeneration>1</numerogeneration><pere>0</pere><mere>0</mere><enfant>0</enfant>
      <infopersonne><nom>MARTIN</nom><prenom>Paul</prenom></infopersonne>
    </personne>
    <nombregenerations>1</nombregenerations>
  </arbre>
</xrlg>
)";
